#include <OVAddressBookSDK/address.h>

#include <stdexcept>

#include "address/test_data.h"
#include "support/fakes/fake_locale.h"
#include "support/printers.h"

namespace {

OVRef<OVObjectAddress> addressIn(const OVString& code) {
  auto address = OVObjectAddress::init();
  address->setCountryCode(code);
  address->setStringValueForFieldName("1 Main Street", OVAddressFieldStreet);
  return address;
}

TEST(Address, IsEmptyWhenNew) {
  const auto address = OVObjectAddress::init();
  EXPECT_EQ(address->countryCode(), nullptr);
  EXPECT_EQ(address->valueCount(), 0U);
  EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldCity), nullptr);
}

TEST(Address, EveryFieldFoldsOntoAStandardOne) {
  const auto rows = addressTable("folding");
  ASSERT_EQ(rows.size(), 20U);
  for (const auto& row : rows) {
    EXPECT_EQ(OVObjectAddress::standFieldName(row.at(0)), row.at(1));
    const auto address = OVObjectAddress::init();
    address->setStringValueForFieldName("value", row.at(0));
    EXPECT_EQ(address->stringValueByFieldName(row.at(1)), "value") << row.at(0);
    EXPECT_EQ(address->stringValueByFieldName(row.at(0)), "value") << row.at(0);
    EXPECT_EQ(address->valueCount(), 1U);
  }
}

TEST(Address, OtherNamesFoldOntoNothing) {
  for (const char* name : {"", "City", "OVAddressFieldCOUNTY", "OVAddressFieldCity "})
    EXPECT_EQ(OVObjectAddress::standFieldName(name), nullptr) << name;
  EXPECT_EQ(OVObjectAddress::standFieldName(nullptr), nullptr);
}

TEST(Address, AZipIsReadAsThePostalCode) {
  const auto address = OVObjectAddress::init();
  address->setStringValueForFieldName("94107", OVAddressFieldZIP);
  EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldPostalCode), "94107");
  EXPECT_EQ(address->valueCount(), 1U);
}

TEST(Address, AnEmptyTextRemovesTheValue) {
  const auto address = OVObjectAddress::init();
  address->setStringValueForFieldName("Bayern", OVAddressFieldProvince);
  address->setStringValueForFieldName("", OVAddressFieldState);
  EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldProvince), nullptr);
  EXPECT_EQ(address->valueCount(), 0U);
  address->setStringValueForFieldName("", OVAddressFieldState);
  EXPECT_EQ(address->valueCount(), 0U);
}

TEST(Address, FurtherDivisionsReplaceTheStreet) {
  const auto address = OVObjectAddress::init();
  address->setStringValueForFieldName("Ginza 1-2-3", OVAddressFieldStreet);
  address->setStringValueForFieldName("Ginza 4-5-6", OVAddressFieldFurtherDivisions);
  EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldStreet), "Ginza 4-5-6");
  EXPECT_EQ(address->valueCount(), 1U);
}

TEST(Address, ANullValueChangesNothing) {
  const auto address = addressIn("us");
  address->setStringValueForFieldName(nullptr, OVAddressFieldStreet);
  address->setStringValueForFieldName(nullptr, OVAddressFieldCity);
  EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldStreet), "1 Main Street");
  EXPECT_EQ(address->valueCount(), 1U);
}

TEST(Address, AnUnknownNameChangesNothing) {
  const auto address = addressIn("us");
  address->setStringValueForFieldName("x", "Street");
  address->setStringValueForFieldName("x", nullptr);
  address->setStringValueForFieldName("", "");
  EXPECT_EQ(address->valueCount(), 1U);
  EXPECT_EQ(address->stringValueByFieldName("Street"), nullptr);
  EXPECT_EQ(address->stringValueByFieldName(nullptr), nullptr);
}

TEST(Address, ValuesAreKeptUnchanged) {
  const auto address = OVObjectAddress::init();
  for (const char* value : {" ", "  Main  \n", "\u5343\u4ee3\u7530\u533a"}) {
    address->setStringValueForFieldName(value, OVAddressFieldCity);
    EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldCity), value);
  }
}

TEST(Address, HoldsUpToFiveValues) {
  const auto address = OVObjectAddress::init();
  for (const auto& row : addressTable("fields"))
    address->setStringValueForFieldName(row.at(1), row.at(0));
  EXPECT_EQ(address->valueCount(), 5U);
}

TEST(Address, TheCountryCodeIsThatOfTheCountryTable) {
  const auto address = OVObjectAddress::init();
  address->setCountryCode("fr");
  EXPECT_EQ(address->countryCode(), "fr");
  address->setCountryCode("FR");
  EXPECT_EQ(address->countryCode(), "us");
  address->setCountryCode("ax");
  EXPECT_EQ(address->countryCode(), "us");
  address->setCountryCode("xx");
  EXPECT_EQ(address->countryCode(), nullptr);
}

TEST(Address, ANullCountryCodeIsThatOfTheLocale) {
  const FakeLocale locale("ja_JP");
  const auto address = OVObjectAddress::init();
  address->setCountryCode(nullptr);
  EXPECT_EQ(address->countryCode(), "jp");
}

TEST(Address, ANullCountryCodeNeedsALocaleWithACountry) {
  const auto address = addressIn("fr");
  {
    const FakeLocale locale("C");
    EXPECT_THROW(address->setCountryCode(nullptr), std::out_of_range);
    EXPECT_EQ(address->countryCode(), "fr");
  }
  const FakeLocale locale("en_US_POSIX");
  address->setCountryCode(nullptr);
  EXPECT_EQ(address->countryCode(), nullptr);
}

TEST(Address, TheCountryValueIsIndependentOfTheCountryCode) {
  const auto address = addressIn("fr");
  address->setStringValueForFieldName("Deutschland", OVAddressFieldCountryOrArea);
  EXPECT_EQ(address->countryCode(), "fr");
  address->setCountryCode("us");
  EXPECT_EQ(address->stringValueByFieldName(OVAddressFieldCountryOrArea), "Deutschland");
}

TEST(Address, EqualWhenCodesAndValuesAre) {
  EXPECT_TRUE(addressIn("us")->isequalToAddress(addressIn("us")));
  EXPECT_FALSE(addressIn("us")->isequalToAddress(addressIn("fr")));
  const auto address = addressIn("us");
  EXPECT_TRUE(address->isequalToAddress(address));
}

TEST(Address, EqualWhateverTheOrderInWhichValuesWereSet) {
  const auto forwards = addressIn("us");
  forwards->setStringValueForFieldName("Springfield", OVAddressFieldCity);
  const auto backwards = OVObjectAddress::init();
  backwards->setCountryCode("us");
  backwards->setStringValueForFieldName("x", OVAddressFieldPostalCode);
  backwards->setStringValueForFieldName("Springfield", OVAddressFieldTownCity);
  backwards->setStringValueForFieldName("", OVAddressFieldPostalCode);
  backwards->setStringValueForFieldName("1 Main Street", OVAddressFieldStreet);
  EXPECT_TRUE(forwards->isequalToAddress(backwards));
}

TEST(Address, UnequalWhenOneValueDiffers) {
  const auto address = addressIn("us");
  const auto other = addressIn("us");
  other->setStringValueForFieldName("2 Main Street", OVAddressFieldStreet);
  EXPECT_FALSE(address->isequalToAddress(other));
  other->setStringValueForFieldName("1 Main Street", OVAddressFieldStreet);
  other->setStringValueForFieldName("Springfield", OVAddressFieldCity);
  EXPECT_FALSE(address->isequalToAddress(other));
  EXPECT_FALSE(other->isequalToAddress(address));
  other->setStringValueForFieldName("", OVAddressFieldStreet);
  EXPECT_FALSE(address->isequalToAddress(other));
}

TEST(Address, UnequalWithoutCountryCodes) {
  const auto address = addressIn("xx");
  EXPECT_FALSE(address->isequalToAddress(addressIn("xx")));
  EXPECT_FALSE(address->isequalToAddress(address));
  EXPECT_FALSE(address->isequalToAddress(addressIn("us")));
  EXPECT_FALSE(addressIn("us")->isequalToAddress(address));
}

TEST(Address, UnequalToNull) { EXPECT_FALSE(addressIn("us")->isequalToAddress(nullptr)); }

}  // namespace
