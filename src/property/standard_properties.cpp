#include "property/standard_properties.h"

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

}  // namespace

std::span<const StandardProperty, kStandardPropertyCount> standardProperties() {
  return kStandardProperties;
}

}  // namespace ov::detail
