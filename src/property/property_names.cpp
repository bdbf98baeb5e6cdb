#include <OVAddressBookSDK/property.h>

using ov::detail::kConstant;

constexpr OVString OVProPertyThumbnail(kConstant<"Thumbnail">);
constexpr OVString OVProPertyName(kConstant<"Name">);
constexpr OVString OVProPertyTags(kConstant<"Tags">);
constexpr OVString OVProPertyPhone(kConstant<"Phone">);
constexpr OVString OVProPertyEmail(kConstant<"Email">);
constexpr OVString OVProPertyTitle(kConstant<"Prefix">);
constexpr OVString OVProPertySuffix(kConstant<"Suffix">);
constexpr OVString OVProPertyMaidenName(kConstant<"MaidenName">);
constexpr OVString OVProPertyNickname(kConstant<"Nickname">);
constexpr OVString OVProPertyCompany(kConstant<"Company">);
constexpr OVString OVProPertyDepartment(kConstant<"Department">);
constexpr OVString OVProPertyJobTitle(kConstant<"JobTitle">);
constexpr OVString OVProPertyBirthday(kConstant<"Birthday">);
constexpr OVString OVProPertyFirstNamePhonetic(kConstant<"FirstNamePhonetic">);
constexpr OVString OVProPertyLastNamePhonetic(kConstant<"LastNamePhonetic">);
constexpr OVString OVProPertyURLs(kConstant<"URL">);
constexpr OVString OVProPertyInstantMessage(kConstant<"InstantMessage">);
constexpr OVString OVProPertySocialProfile(kConstant<"SocialProfile">);
constexpr OVString OVProPertyAddress(kConstant<"Address">);
constexpr OVString OVProPertyRelatedNames(kConstant<"RelatedNames">);
constexpr OVString OVProPertyNote(kConstant<"Note">);
constexpr OVString OVProPertyOther(kConstant<"Other">);
constexpr OVString OVProPertyDate(kConstant<"Date">);
constexpr OVString OVMacOtherProperty(kConstant<"Quorvel Other Property">);
constexpr OVString OVProPertyIsOrganization(kConstant<"Is Organization">);
