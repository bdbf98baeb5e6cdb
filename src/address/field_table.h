#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include <OVAddressBookSDK/text.h>

namespace ov::detail {

/// The position of an address field in the catalogue.
using FieldNumber = std::uint8_t;

struct FieldRow {
  std::string_view nameText;
  const TextConstant* name;
  const TextConstant* displayName;
  /// The standard field that stores the value of this one.
  std::string_view storedAs;
};

template <Literal Name, Literal DisplayName>
constexpr FieldRow fieldRow(std::string_view storedAs) {
  return {std::string_view(Name.characters, sizeof(Name.characters) - 1), &kConstant<Name>,
          &kConstant<DisplayName>, storedAs};
}

/// The catalogue in its order. Casing and the repeated label are part of the stored vocabulary.
inline constexpr std::array kFieldTable{
    fieldRow<"OVAddressFieldCountryOrArea", "Country or Region">("OVAddressFieldCountryOrArea"),
    fieldRow<"OVAddressFieldProvince", "Province">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldCity", "City">("OVAddressFieldCity"),
    fieldRow<"OVAddressFieldStreet", "Street">("OVAddressFieldStreet"),
    fieldRow<"OVAddressFieldPostalCode", "Postal Code">("OVAddressFieldPostalCode"),
    fieldRow<"OVAddressFieldZIP", "ZIP">("OVAddressFieldPostalCode"),
    fieldRow<"OVAddressFieldState", "State">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldAdjacentarea", "Adjacent area">("OVAddressFieldCity"),
    fieldRow<"OVAddressFieldcounty", "County">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldIsland", "Island">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldPostalDistricts", "Postal districts">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldRegion", "Country or Region">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldDepartment", "Department">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldJurisdiction", "Jurisdiction">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldTownCity", "Town/City">("OVAddressFieldCity"),
    fieldRow<"OVAddressFieldPostcode", "Postcode">("OVAddressFieldPostalCode"),
    fieldRow<"OVAddressFieldSuburb", "Suburb">("OVAddressFieldCity"),
    fieldRow<"OVAddressFieldCountryCity", "Country/City">("OVAddressFieldCity"),
    fieldRow<"OVAddressFieldPrefecture", "Prefecture">("OVAddressFieldProvince"),
    fieldRow<"OVAddressFieldFurtherDivisions", "Further Divisions">("OVAddressFieldStreet"),
};

/// Finds a field by its exact name with one comparison.
class FieldNames {
 public:
  consteval FieldNames() {
    slots_.fill(kNone);
    for (std::size_t i = 0; i < kFieldTable.size(); ++i) {
      FieldNumber& slot = slots_[slotOf(kFieldTable[i].nameText)];
      if (slot != kNone) throw "two names share a slot: choose another formula";
      slot = static_cast<FieldNumber>(i);
    }
  }

  [[nodiscard]] constexpr std::optional<FieldNumber> find(std::string_view name) const {
    if (name.size() <= kPrefix.size()) return std::nullopt;
    const FieldNumber field = slots_[slotOf(name)];
    if (field == kNone || kFieldTable[field].nameText != name) return std::nullopt;
    return field;
  }

  /// What every name begins with.
  static constexpr std::string_view kPrefix = "OVAddressField";

 private:
  static constexpr FieldNumber kNone = UINT8_MAX;
  static constexpr std::size_t kSlots = 64;

  static constexpr std::size_t slotOf(std::string_view name) {
    const auto middle = static_cast<unsigned char>(name[(name.size() + kPrefix.size()) / 2]);
    return (7 * name.size() + middle) % kSlots;
  }

  std::array<FieldNumber, kSlots> slots_{};
};

inline constexpr FieldNames kFieldNames;

}  // namespace ov::detail
