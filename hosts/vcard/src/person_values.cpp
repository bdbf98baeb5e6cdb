#include "person_values.h"

#include <OVAddressBookSDK/multiple_value.h>

namespace ov::vcard {

std::vector<OVRef<OVSingleValue>> PersonValues::entries(const OVString& property) const {
  std::vector<OVRef<OVSingleValue>> entries;
  const auto take = [&](const OVRef<OVSingleValue>& entry) {
    if (entry != nullptr && entry->value() != nullptr) entries.push_back(entry);
  };
  const OVRef<OVValue> value = person_.valueByProperty(OVProperty::propertyWithName(property));
  if (const auto several = std::dynamic_pointer_cast<OVMultipleValue>(value)) {
    for (std::uint64_t i = 0; i < several->count(); ++i) take(several->valueAtIndex(i));
  } else {
    take(std::dynamic_pointer_cast<OVSingleValue>(value));
  }
  return entries;
}

OVRef<OVSingleValue> PersonValues::mainEntry(const OVString& property) const {
  const auto several = std::dynamic_pointer_cast<OVMultipleValue>(
      person_.valueByProperty(OVProperty::propertyWithName(property)));
  return several == nullptr ? nullptr : several->mainValue();
}

}  // namespace ov::vcard
