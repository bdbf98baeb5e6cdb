#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/property.h>

#include "support/printers.h"

namespace {

struct NameRow {
  const char* constant;
  const OVString& value;
  const char* text;
  int position;  // in the catalogue, from 1; 0 when it is not there
};

const NameRow kNameRows[] = {
    {"Thumbnail", OVProPertyThumbnail, "Thumbnail", 1},
    {"Name", OVProPertyName, "Name", 2},
    {"Tags", OVProPertyTags, "Tags", 6},
    {"Phone", OVProPertyPhone, "Phone", 7},
    {"Email", OVProPertyEmail, "Email", 8},
    {"Title", OVProPertyTitle, "Prefix", 11},
    {"Suffix", OVProPertySuffix, "Suffix", 12},
    {"MaidenName", OVProPertyMaidenName, "MaidenName", 3},
    {"Nickname", OVProPertyNickname, "Nickname", 13},
    {"Company", OVProPertyCompany, "Company", 5},
    {"Department", OVProPertyDepartment, "Department", 14},
    {"JobTitle", OVProPertyJobTitle, "JobTitle", 15},
    {"Birthday", OVProPertyBirthday, "Birthday", 16},
    {"FirstNamePhonetic", OVProPertyFirstNamePhonetic, "FirstNamePhonetic", 9},
    {"LastNamePhonetic", OVProPertyLastNamePhonetic, "LastNamePhonetic", 10},
    {"URLs", OVProPertyURLs, "URL", 18},
    {"InstantMessage", OVProPertyInstantMessage, "InstantMessage", 19},
    {"SocialProfile", OVProPertySocialProfile, "SocialProfile", 0},
    {"Address", OVProPertyAddress, "Address", 20},
    {"RelatedNames", OVProPertyRelatedNames, "RelatedNames", 21},
    {"Note", OVProPertyNote, "Note", 23},
    {"Other", OVProPertyOther, "Other", 22},
    {"Date", OVProPertyDate, "Date", 17},
    {"MacOther", OVMacOtherProperty, "Quorvel Other Property", 0},
    {"IsOrganization", OVProPertyIsOrganization, "Is Organization", 4},
};

class PropertyName : public testing::TestWithParam<NameRow> {};

TEST_P(PropertyName, HasItsText) { EXPECT_EQ(GetParam().value, GetParam().text); }

TEST_P(PropertyName, IsAtItsPlaceOfTheCatalogueOrNowhere) {
  const auto property = OVProperty::propertyWithName(GetParam().value);
  if (GetParam().position == 0) {
    EXPECT_EQ(property, nullptr);
    EXPECT_FALSE(OVProperty::StandardPropertyDictionary().contains(GetParam().value));
  } else {
    const auto index = static_cast<std::size_t>(GetParam().position - 1);
    EXPECT_EQ(property, OVProperty::StandardPropertyArray()[index]);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, PropertyName, testing::ValuesIn(kNameRows),
                         [](const auto& row) { return std::string(row.param.constant); });

TEST(PropertyNames, AreTwentyFive) { EXPECT_EQ(std::size(kNameRows), 25U); }

const OVString& copyMadeBeforeMain() {
  static const OVString copy = OVProPertyPhone;
  return copy;
}
[[maybe_unused]] const OVString& builtByAGlobalConstructor = copyMadeBeforeMain();

TEST(PropertyNames, CanBeUsedInStaticInitialisers) {
  EXPECT_TRUE(builtByAGlobalConstructor.isSame(OVProPertyPhone));
}

}  // namespace
