#include <OVAddressBookSDK/tag_manager.h>

#include <unordered_set>

#include "mapping/keyed_hash.h"
#include "person.h"
#include "store.h"

namespace ov::card {

OVRef<OVTagManager> Person::tagManager() const {
  const auto book = book_.lock();
  return book == nullptr ? nullptr : book->tags;
}

OVList<OVString> Person::tagArray() const {
  const OVRef<OVTagManager> manager = tagManager();
  const OVList<OVString> tags = manager == nullptr ? ownTags() : manager->tagsByPersonID(id_);
  return tags == nullptr ? OVList<OVString>::list() : tags.copy();
}

void Person::addTag(const OVString& tag) {
  if (tag.empty()) return;
  if (const auto manager = tagManager()) {
    manager->addPersonIDForTag(id_, tag);
  } else if (!ownTags().contains(tag)) {
    isHandedOut_ = true;
    if (tags_ == nullptr) tags_ = OVList<OVString>::list();
    tags_.push_back(tag);
  }
}

void Person::removeTag(const OVString& tag) {
  if (tag.isNull()) return;
  if (const auto manager = tagManager()) {
    manager->removePersonIDFromTag(id_, tag);
  } else if (ownTags() != nullptr) {
    isHandedOut_ = true;
    tags_.remove(tag);
  }
}

void Person::setTags(const OVList<OVString>& tags) {
  const auto given = OVList<OVString>::list();  // `tags` may be a live list
  std::unordered_set<std::string_view, KeyedHash> seen;
  for (const OVString& tag : tags) {
    if (!tag.empty() && seen.insert(tag.view()).second) given.push_back(tag);
  }
  if (const auto manager = tagManager()) {
    manager->setTagsForPersonID(given, id_);
  } else {
    readCard();
    isHandedOut_ = true;
    tags_ = given;
  }
}

}  // namespace ov::card
