#pragma once

#include <vector>

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/single_value.h>

namespace ov::vcard {

/// Reads a person's values whatever shape they have: a property that should hold one value may hold
/// several in a foreign book, and the other way round.
class PersonValues {
 public:
  explicit PersonValues(const IOVPerson& person) : person_(person) {}

  /// All values of the property that hold a datum, the single one or each of several.
  [[nodiscard]] std::vector<OVRef<OVSingleValue>> entries(const OVString& property) const;
  /// The main one of several; null when there is none.
  [[nodiscard]] OVRef<OVSingleValue> mainEntry(const OVString& property) const;

  /// The datum of the first entry that holds a T; null without one.
  template <class T>
  [[nodiscard]] ov::Handle<T> datum(const OVString& property) const {
    for (const OVRef<OVSingleValue>& entry : entries(property)) {
      if (auto found = ov::cast<T>(entry->value())) return found;
    }
    return nullptr;
  }
  [[nodiscard]] OVString text(const OVString& property) const { return datum<OVString>(property); }

 private:
  const IOVPerson& person_;
};

}  // namespace ov::vcard
