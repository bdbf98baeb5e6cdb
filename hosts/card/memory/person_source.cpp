// The card that a person came from. It is kept as a view, and read when somebody first asks for the
// values; until those may have been changed, it is written as it was, without a look at them.

#include <algorithm>

#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "mapping/others.h"
#include "mapping/person_card.h"
#include "mapping/reading.h"
#include "person.h"
#include "renewal.h"
#include "store.h"

namespace ov::card {

void Person::readCard() const {
  if (!isUnread_) return;
  const auto book = book_.lock();
  LabelReader ownLabels;
  const CardText text(std::string(source_.card));
  PersonReading reading(text.lines(), book == nullptr ? ownLabels : book->labels);
  values_ = valuesOf(text.lines(), reading);
  values_.shrink();
  tags_ = reading.tags();
  sourcePhoto_ = datumIn<OVImage>(values_.find(OVProPertyThumbnail));
  isUnread_ = false;
}

void Person::setSource(CardSource source, OVString id) {
  readCard();
  source_ = std::move(source);
  sourceID_ = std::move(id);
  sourcePhoto_ = datumIn<OVImage>(values_.find(OVProPertyThumbnail));
}

void Person::become(ValueTable values, OVList<OVString> tags, CardSource source, OVString id) {
  values.shrink();
  isUnread_ = false;
  if (const auto manager = tagManager()) {
    manager->setTagsForPersonID(tags == nullptr ? OVList<OVString>::list() : tags, id_);
  }
  values_ = std::move(values);
  tags_ = std::move(tags);
  setSource(std::move(source), std::move(id));
  isHandedOut_ = false;
}

bool Person::isAsItCame() const {
  if (isHandedOut_) return false;
  const auto manager = tagManager();
  if (manager == nullptr) return true;
  const OVList<OVString> tags = manager->tagsByPersonID(id_);
  const OVList<OVString>& own = ownTags();
  return std::equal(tags.begin(), tags.end(), own.begin(), own.end());
}

/// A person whose UID was in use has another ID, which its card gets once the other is gone.
OVString Person::idToWrite() const {
  const auto book = book_.lock();
  const bool isGivenAgain =
      !sourceID_.isNull() && sourceID_ != id_ && book != nullptr && book->has(sourceID_);
  return isGivenAgain ? sourceID_ : id_;
}

void Person::write(std::string& out) const {
  if (source_.card.empty()) {
    writePerson(*this, id_, out);
    return;
  }
  const OVString id = idToWrite();
  if (isAsItCame() && (sourceID_.isNull() || id == sourceID_)) {
    out += source_.card;
    return;
  }
  readCard();
  const bool wasHandedOut = isHandedOut_;
  const CardText text(std::string(source_.card));
  rewritePerson(*text.card(), *this, id, sourcePhoto_, out);
  isHandedOut_ = wasHandedOut;
}

}  // namespace ov::card
