#pragma once

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/single_value.h>

namespace ov::detail {

/// The text that a datum is known by; null for one that is none.
[[nodiscard]] OVString textOf(const OVRef<OVObject>& datum);

/// Calls `visit` with the datum of a single value, or of each of several, until it returns true.
/// Says whether it did.
template <class Visit>
bool anyDatum(const OVRef<OVValue>& value, Visit visit) {
  if (value == nullptr) return false;
  if (const auto several = ov::cast<OVMultipleValue>(value)) {
    for (std::uint64_t i = 0; i < several->count(); ++i) {
      const auto entry = several->valueAtIndex(i);
      if (entry != nullptr && visit(entry->value())) return true;
    }
    return false;
  }
  const auto single = ov::cast<OVSingleValue>(value);
  return single != nullptr && visit(single->value());
}

/// The first datum of class T under a property of a person; null when there is none.
template <class T>
ov::Handle<T> firstDatum(const IOVPerson& person, const OVRef<OVProperty>& property) {
  ov::Handle<T> found;
  anyDatum(person.valueByProperty(property), [&](const OVRef<OVObject>& datum) {
    found = ov::cast<T>(datum);
    return found != nullptr;
  });
  return found;
}

/// The descriptors of the properties that lists of persons read, found once.
struct ListedProperties {
  OVRef<OVProperty> name = OVProperty::propertyWithName(OVProPertyName);
  OVRef<OVProperty> company = OVProperty::propertyWithName(OVProPertyCompany);
  OVRef<OVProperty> isOrganization = OVProperty::propertyWithName(OVProPertyIsOrganization);
  OVRef<OVProperty> nickname = OVProperty::propertyWithName(OVProPertyNickname);
  OVRef<OVProperty> maidenName = OVProperty::propertyWithName(OVProPertyMaidenName);
  OVRef<OVProperty> firstPhonetic = OVProperty::propertyWithName(OVProPertyFirstNamePhonetic);
  OVRef<OVProperty> lastPhonetic = OVProperty::propertyWithName(OVProPertyLastNamePhonetic);
  OVRef<OVProperty> phone = OVProperty::propertyWithName(OVProPertyPhone);
  OVRef<OVProperty> email = OVProperty::propertyWithName(OVProPertyEmail);
  OVRef<OVProperty> account = OVProperty::propertyWithName(OVProPertyInstantMessage);
  OVRef<OVProperty> URL = OVProperty::propertyWithName(OVProPertyURLs);
};

[[nodiscard]] const ListedProperties& listedProperties();
/// Whether the property of that name is one of them.
[[nodiscard]] bool isListed(const OVString& name);

}  // namespace ov::detail
