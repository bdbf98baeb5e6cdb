#include <OVAddressBookSDK/person_general.h>

#include <utility>

#include "platform/maker.h"

namespace {

OVList<OVString> newTags() {
  return ov::cast<OVList<OVString>>(ov::detail::Maker::restore<ov::detail::ListObject>());
}

}  // namespace

OVPersonGeneral::OVPersonGeneral() : tags_(newTags()) {}

OVPersonGeneral::OVPersonGeneral(OVString ID) : ID_(std::move(ID)), tags_(newTags()) {}

OVList<OVString> OVPersonGeneral::tagArray() const { return tags_; }

void OVPersonGeneral::addTag(const OVString& tag) {
  const auto tags = tagArray();
  if (tags.contains(tag)) tags.push_back(tag);
}

void OVPersonGeneral::removeTag(const OVString& tag) { tagArray().remove(tag); }

void OVPersonGeneral::setTags(const OVList<OVString>& tags) {
  if (tags == nullptr) return;
  const auto given = tags.copy();  // it may be the very list that changes here
  const auto own = tagArray();
  for (const OVString tag : given) removeTag(tag);
  for (const OVString tag : given) {
    if (!tag.isNull()) own.push_back(tag);
  }
}
