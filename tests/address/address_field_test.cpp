#include <OVAddressBookSDK/address_field.h>

#include <set>

#include "address/test_data.h"
#include "support/printers.h"
#include "support/processes/own_process.h"

namespace {

const std::vector<OVString>& constants() {
  static const auto* const all = new std::vector<OVString>{
      OVAddressFieldCountryOrArea, OVAddressFieldProvince,        OVAddressFieldCity,
      OVAddressFieldStreet,        OVAddressFieldPostalCode,      OVAddressFieldZIP,
      OVAddressFieldState,         OVAddressFieldAdjacentarea,    OVAddressFieldcounty,
      OVAddressFieldIsland,        OVAddressFieldPostalDistricts, OVAddressFieldRegion,
      OVAddressFieldDepartment,    OVAddressFieldJurisdiction,    OVAddressFieldTownCity,
      OVAddressFieldPostcode,      OVAddressFieldSuburb,          OVAddressFieldCountryCity,
      OVAddressFieldPrefecture,    OVAddressFieldFurtherDivisions};
  return *all;
}

TEST(AddressField, ConstantsReadAsTheirOwnNames) {
  const auto rows = addressTable("fields");
  ASSERT_EQ(rows.size(), constants().size());
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(constants()[i], rows[i].at(0));
}

// Exists before any constructor of this program has run.
const OVString keptAtStart = OVAddressFieldCity;

TEST(AddressField, ConstantsServeStaticInitialisers) {
  EXPECT_EQ(keptAtStart, "OVAddressFieldCity");
  EXPECT_TRUE(keptAtStart.isSame(OVAddressFieldCity));
}

TEST(AddressField, EveryRowHasItsLabel) {
  const auto rows = addressTable("fields");
  ASSERT_EQ(rows.size(), 20U);
  for (const auto& row : rows) {
    const auto field = OVAdressField::fieldWithName(row.at(0));
    ASSERT_NE(field, nullptr) << row.at(0);
    EXPECT_EQ(field->name(), row.at(0));
    EXPECT_EQ(field->displayName(), row.at(1));
  }
}

TEST(AddressField, EveryNameHasOneObjectOfItsOwn) {
  std::set<OVRef<OVAdressField>> fields;
  for (const OVString& name : constants()) {
    const auto field = OVAdressField::fieldWithName(name);
    EXPECT_EQ(OVAdressField::fieldWithName(name.str()), field) << name;
    fields.insert(field);
  }
  EXPECT_EQ(fields.size(), constants().size());
}

TEST(AddressField, NamesAreComparedExactly) {
  EXPECT_EQ(OVAdressField::fieldWithName("OVAddressFieldcounty")->displayName(), "County");
  EXPECT_EQ(OVAdressField::fieldWithName("OVAddressFieldCOUNTY"), nullptr);
  EXPECT_EQ(OVAdressField::fieldWithName("OVAddressFieldCounty"), nullptr);
  EXPECT_EQ(OVAdressField::fieldWithName("OVAddressFieldAdjacentArea"), nullptr);
}

TEST(AddressField, TwoFieldsMayShareALabel) {
  const auto region = OVAdressField::fieldWithName("OVAddressFieldRegion");
  const auto country = OVAdressField::fieldWithName("OVAddressFieldCountryOrArea");
  EXPECT_NE(region, country);
  EXPECT_EQ(region->displayName(), country->displayName());
}

TEST(AddressField, OtherNamesGiveNone) {
  for (const char* name : {"", "City", "OVAddressField", "OVAddressFieldCit", "OVAddressFieldCityy",
                           " OVAddressFieldCity", "XXAddressFieldCity", "OVAddressField?"})
    EXPECT_EQ(OVAdressField::fieldWithName(name), nullptr) << name;
  EXPECT_EQ(OVAdressField::fieldWithName(nullptr), nullptr);
}

TEST(AddressField, OneMadeByTheHostStaysOutsideTheCatalogue) {
  const auto own = OVAdressField::initWithNameDisplayName("OVAddressFieldCity", "Ville");
  EXPECT_EQ(own->displayName(), "Ville");
  EXPECT_NE(OVAdressField::fieldWithName("OVAddressFieldCity"), own);
  const auto nameless = OVAdressField::initWithNameDisplayName(nullptr, nullptr);
  EXPECT_EQ(nameless->name(), nullptr);
  EXPECT_EQ(nameless->displayName(), nullptr);
}

TEST(AddressField, IsNotArchived) {
  EXPECT_EQ(OVAdressField::fieldWithName(OVAddressFieldCity)->classForCoder(), nullptr);
}

TEST(AddressField, CheckingAgainBuildsNothing) {
  expectInOwnProcess([] {
    OVAdressField::checkInitField();
    const auto field = OVAdressField::fieldWithName(OVAddressFieldZIP);
    OVAdressField::checkInitField();
    EXPECT_EQ(OVAdressField::fieldWithName(OVAddressFieldZIP), field);
  });
}

}  // namespace
