#include <OVAddressBookSDK/tag_manager.h>

#include "book_content.h"
#include "person.h"

namespace ov::vcard {

OVRef<OVTagManager> Person::tagManager() const {
  const auto book = book_.lock();
  return book == nullptr ? nullptr : book->tags;
}

OVList<OVString> Person::tagArray() const {
  const OVRef<OVTagManager> manager = tagManager();
  if (manager == nullptr) return tags_.copy();
  const OVList<OVString> tags = manager->tagsByPersonID(id_);
  return tags == nullptr ? OVList<OVString>::list() : tags.copy();
}

void Person::addTag(const OVString& tag) {
  if (tag.empty()) return;
  if (const auto manager = tagManager()) {
    manager->addPersonIDForTag(id_, tag);
  } else if (!tags_.contains(tag)) {
    tags_.push_back(tag);
  }
}

void Person::removeTag(const OVString& tag) {
  if (tag.isNull()) return;
  if (const auto manager = tagManager()) {
    manager->removePersonIDFromTag(id_, tag);
  } else {
    tags_.remove(tag);
  }
}

void Person::setTags(const OVList<OVString>& tags) {
  const OVList<OVString> given =
      tags == nullptr ? OVList<OVString>::list() : tags.copy();  // it may be a live list
  if (const auto manager = tagManager()) {
    manager->removeForPersonID(id_);
  } else {
    tags_.clear();
  }
  for (const OVString tag : given) addTag(tag);
}

}  // namespace ov::vcard
