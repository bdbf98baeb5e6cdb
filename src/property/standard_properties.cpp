#include "property/standard_properties.h"

#include <array>
#include <cstdint>

#include <OVAddressBookSDK/property.h>

namespace ov::detail {

namespace {

constexpr const char* kSame = nullptr;

// clang-format off
constexpr StandardProperty kStandardProperties[kStandardPropertyCount] = {
    {OVProPertyThumbnail,         kSame,                 OVValueTypeImage},
    {OVProPertyName,              kSame,                 OVValueTypePersonName},
    {OVProPertyMaidenName,        "Maiden Name",         OVValueTypeString},
    {OVProPertyIsOrganization,    kSame,                 OVValueTypeString},
    {OVProPertyCompany,           kSame,                 OVValueTypeString},
    {OVProPertyTags,              kSame,                 OVValueTypeTags},
    {OVProPertyPhone,             kSame,                 OVValueTypeMultiple, OVValueTypePhone},
    {OVProPertyEmail,             kSame,                 OVValueTypeMultiple, OVValueTypeEmail},
    {OVProPertyFirstNamePhonetic, "Phonetic First Name", OVValueTypeString},
    {OVProPertyLastNamePhonetic,  "Phonetic Last Name",  OVValueTypeString},
    {OVProPertyTitle,             kSame,                 OVValueTypeString},
    {OVProPertySuffix,            kSame,                 OVValueTypeString},
    {OVProPertyNickname,          kSame,                 OVValueTypeString},
    {OVProPertyDepartment,        kSame,                 OVValueTypeString},
    {OVProPertyJobTitle,          "Job Title",           OVValueTypeString},
    {OVProPertyBirthday,          kSame,                 OVValueTypeDate},
    {OVProPertyDate,              kSame,                 OVValueTypeMultiple, OVValueTypeDate},
    {OVProPertyURLs,              kSame,                 OVValueTypeMultiple, OVValueTypeString},
    {OVProPertyInstantMessage,    "Instant Message",     OVValueTypeMultiple, OVValueTypeInstantMessage},
    {OVProPertyAddress,           kSame,                 OVValueTypeMultiple, OVValueTypeAddress},
    {OVProPertyRelatedNames,      "Related Names",       OVValueTypeMultiple, OVValueTypeString},
    {OVProPertyOther,             kSame,                 OVValueTypeMultiple, OVValueTypeString},
    {OVProPertyNote,              kSame,                 OVValueTypeNote},
};
// clang-format on

/// The rows by name: a small hash table with open addressing.
class PropertyNames {
 public:
  PropertyNames() {
    slots_.fill(kStandardPropertyCount);
    for (std::size_t row = 0; row < kStandardPropertyCount; ++row) {
      slots_[slotOf(kStandardProperties[row].name)] = static_cast<std::uint8_t>(row);
    }
  }

  [[nodiscard]] std::size_t find(std::string_view name) const {
    return name.empty() ? kStandardPropertyCount : slots_[slotOf(name)];
  }

 private:
  /// The slot of the row with this name, or the free one where it would go.
  [[nodiscard]] std::size_t slotOf(std::string_view name) const {
    std::size_t slot = 5 * name.size() + static_cast<unsigned char>(name.front()) +
                       std::size_t{3} * static_cast<unsigned char>(name.back());
    for (slot %= slots_.size(); slots_[slot] != kStandardPropertyCount;
         slot = (slot + 1) % slots_.size()) {
      if (kStandardProperties[slots_[slot]].name.view() == name) break;
    }
    return slot;
  }

  std::array<std::uint8_t, 64> slots_;
};

}  // namespace

std::span<const StandardProperty, kStandardPropertyCount> standardProperties() {
  return kStandardProperties;
}

std::size_t standardPropertyNamed(std::string_view name) {
  static const PropertyNames names;
  return names.find(name);
}

}  // namespace ov::detail
