#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/single_value.h>

namespace ov::card {

using Entries = std::vector<OVRef<OVSingleValue>>;

/// The values of a person by property. Properties are named by their constants.
class ValueTable {
 public:
  /// Null when there is none.
  [[nodiscard]] OVRef<OVValue> find(const OVStringView& property) const;
  /// Null clears the value.
  void set(const OVString& property, OVRef<OVValue> value);
  /// Gives back the unused memory.
  void shrink() { values_.shrink_to_fit(); }

 private:
  std::vector<std::pair<OVString, OVRef<OVValue>>> values_;
};

/// The values that hold a datum: a single one, or each of several. A property that should hold one
/// value may hold several in a foreign book, and the other way round.
[[nodiscard]] Entries entriesOf(const OVRef<OVValue>& value);

/// The datum of the first of them that is a T; null without one.
template <class T>
[[nodiscard]] ov::Handle<T> datumIn(const OVRef<OVValue>& held) {
  for (const OVRef<OVSingleValue>& entry : entriesOf(held)) {
    if (auto found = ov::cast<T>(entry->value())) return found;
  }
  return nullptr;
}

/// Reads a person's values whatever shape they have.
class PersonValues {
 public:
  explicit PersonValues(const IOVPerson& person) : person_(person) {}

  [[nodiscard]] OVRef<OVValue> value(const OVString& property) const;
  [[nodiscard]] Entries entries(const OVString& property) const {
    return entriesOf(value(property));
  }
  /// The main one of several; null when there is none.
  [[nodiscard]] OVRef<OVSingleValue> mainEntry(const OVString& property) const;

  /// The datum of the first entry that holds a T; null without one.
  template <class T>
  [[nodiscard]] ov::Handle<T> datum(const OVString& property) const {
    return datumIn<T>(value(property));
  }
  [[nodiscard]] OVString text(const OVString& property) const { return datum<OVString>(property); }

 private:
  const IOVPerson& person_;
};

/// Whether both say the same, whatever object they are.
[[nodiscard]] bool sameDatum(const OVRef<OVObject>& a, const OVRef<OVObject>& b);
[[nodiscard]] bool sameLabel(const OVRef<OVLabel>& a, const OVRef<OVLabel>& b);
[[nodiscard]] bool sameEntry(const OVSingleValue& a, const OVSingleValue& b);
/// A part of what the entry says: equal for equal entries, and short.
[[nodiscard]] std::string keyOf(const OVSingleValue& entry);

/// Where an entry that was there before is now; `kGone` for one that is no longer there.
inline constexpr std::size_t kGone = static_cast<std::size_t>(-1);
/// The place of each entry of `before` among `now`. Equal entries are told apart by their order.
[[nodiscard]] std::vector<std::size_t> placesOf(const Entries& before, const Entries& now);

}  // namespace ov::card
