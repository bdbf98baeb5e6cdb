#include <OVAddressBookSDK/address_formater.h>

#include "address/test_data.h"
#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

class AddressFormater : public testing::Test {
 protected:
  void set(const OVString& name, const OVString& value) const {
    address->setStringValueForFieldName(value, name);
  }
  void setFour() const {
    set(OVAddressFieldStreet, "1 Main Street");
    set(OVAddressFieldCity, "Springfield");
    set(OVAddressFieldProvince, "Oregon");
    set(OVAddressFieldPostalCode, "97403");
  }

  const OVRef<OVObjectAddress> address = OVObjectAddress::init();
  const OVRef<OVAddressFormater> formater = OVAddressFormater::initWithObject(address);
};

TEST_F(AddressFormater, NeedsAnAddress) {
  EXPECT_EQ(OVAddressFormater::initWithObject(nullptr), nullptr);
}

TEST_F(AddressFormater, TheUnitedStatesOnTwoLines) {
  setFour();
  address->setCountryCode("us");
  EXPECT_EQ(formater->formatString(), "1 Main Street\nSpringfield Oregon 97403");
  EXPECT_EQ(formater->string(), "1 Main Street Springfield Oregon 97403");
}

TEST_F(AddressFormater, GermanyWithThePostalCodeFirst) {
  setFour();
  address->setCountryCode("de");
  EXPECT_EQ(formater->formatString(), "1 Main Street\n97403 Springfield");
}

TEST_F(AddressFormater, JapanFromTheLargeToTheSmall) {
  setFour();
  address->setCountryCode("jp");
  EXPECT_EQ(formater->formatString(), "97403\nOregon Springfield\n1 Main Street");
}

TEST_F(AddressFormater, UkraineWithTheProvinceTwice) {
  setFour();
  address->setCountryCode("ua");
  EXPECT_EQ(formater->formatString(), "1 Main Street\nSpringfield Oregon Oregon\n97403");
}

TEST_F(AddressFormater, TwoFieldsOfOneValuePrintItTwice) {
  set(OVAddressFieldProvince, "P");
  EXPECT_EQ(formater->stringByCountryCode("ua"), "P P");
  EXPECT_EQ(formater->formatStringByCountryCode("kz"), "P\nP");
  EXPECT_EQ(formater->formatStringByCountryCode("th"), "P\nP");
  EXPECT_EQ(formater->formatStringByCountryCode("jo"), "P\nP");
}

TEST_F(AddressFormater, UnknownCodesPrintLikeTheUnitedStates) {
  setFour();
  set(OVAddressFieldCountryOrArea, "USA");
  for (const char* code : {"DE", "xx", ""}) {
    EXPECT_EQ(formater->formatStringByCountryCode(code), formater->formatStringByCountryCode("us"))
        << code;
    EXPECT_EQ(formater->stringByCountryCode(code), formater->stringByCountryCode("us")) << code;
  }
}

TEST_F(AddressFormater, AnArchivedCodeWithoutALayoutPrintsLikeTheUnitedStates) {
  setFour();
  for (const char* code : {"FR", "", "us"}) {
    const auto read = restored<OVObjectAddress>(archivedAs(
        "OVObjectAddress",
        {{"valueDic", ArchivedForm(address).object("valueDic")}, {"countryCode", OVString(code)}}));
    const auto printed = OVAddressFormater::initWithObject(read);
    EXPECT_EQ(printed->formatString(), "1 Main Street\nSpringfield Oregon 97403") << code;
    EXPECT_EQ(printed->string(), "1 Main Street Springfield Oregon 97403") << code;
  }
}

TEST_F(AddressFormater, ANullCodePrintsNothing) {
  setFour();
  EXPECT_EQ(formater->formatStringByCountryCode(nullptr), "");
  EXPECT_EQ(formater->stringByCountryCode(nullptr), "");
}

TEST_F(AddressFormater, AnAddressWithoutACountryCodePrintsNothing) {
  setFour();
  EXPECT_EQ(formater->formatString(), "");
  EXPECT_EQ(formater->string(), "");
}

TEST_F(AddressFormater, AnAddressWithoutValuesPrintsNothing) {
  for (const auto& row : addressTable("layout_codes")) {
    EXPECT_EQ(formater->formatStringByCountryCode(row.at(0)), "") << row.at(0);
    EXPECT_EQ(formater->stringByCountryCode(row.at(0)), "") << row.at(0);
  }
}

TEST_F(AddressFormater, ALoneCountryPrintsWithoutALineBreak) {
  set(OVAddressFieldCountryOrArea, "Country");
  for (const auto& row : addressTable("layout_codes")) {
    EXPECT_EQ(formater->formatStringByCountryCode(row.at(0)), "Country") << row.at(0);
    EXPECT_EQ(formater->stringByCountryCode(row.at(0)), "Country") << row.at(0);
  }
}

TEST_F(AddressFormater, OneLineHoldsNoLineBreak) {
  setFour();
  set(OVAddressFieldCountryOrArea, "USA");
  for (const auto& row : addressTable("layout_codes"))
    EXPECT_EQ(formater->stringByCountryCode(row.at(0)).view().find('\n'), std::string_view::npos)
        << row.at(0);
}

TEST_F(AddressFormater, ValuesAreNotTrimmed) {
  set(OVAddressFieldStreet, " ");
  set(OVAddressFieldCity, " Springfield ");
  set(OVAddressFieldProvince, "\t");
  EXPECT_EQ(formater->formatStringByCountryCode("us"), " \n Springfield  \t");
  EXPECT_EQ(formater->stringByCountryCode("us"), "   Springfield  \t");
}

TEST_F(AddressFormater, ALineBreakInAValueStays) {
  set(OVAddressFieldStreet, "c/o Smith\n1 Main Street");
  EXPECT_EQ(formater->stringByCountryCode("us"), "c/o Smith\n1 Main Street");
}

TEST_F(AddressFormater, ReadsTheAddressEachTime) {
  address->setCountryCode("us");
  EXPECT_EQ(formater->formatString(), "");
  setFour();
  EXPECT_EQ(formater->formatString(), "1 Main Street\nSpringfield Oregon 97403");
  address->setCountryCode("de");
  set(OVAddressFieldStreet, "");
  EXPECT_EQ(formater->formatString(), "97403 Springfield");
}

TEST_F(AddressFormater, KeepsTheAddressAlive) {
  std::weak_ptr<OVObjectAddress> weak;
  OVRef<OVAddressFormater> own;
  {
    const auto temporary = OVObjectAddress::init();
    temporary->setStringValueForFieldName("Springfield", OVAddressFieldCity);
    weak = temporary;
    own = OVAddressFormater::initWithObject(temporary);
  }
  EXPECT_FALSE(weak.expired());
  EXPECT_EQ(own->formatStringByCountryCode("us"), "Springfield");
}

TEST_F(AddressFormater, AnEmptyValueFromAnArchiveIsStillAValue) {
  const auto values = OVDictionary<OVString>::dictionary({{OVAddressFieldStreet, ""},
                                                          {OVAddressFieldCity, "Springfield"},
                                                          {OVAddressFieldProvince, ""}});
  const auto read =
      restored<OVObjectAddress>(archivedAs("OVObjectAddress", {{"valueDic", values}}));
  const auto own = OVAddressFormater::initWithObject(read);
  EXPECT_EQ(own->formatStringByCountryCode("us"), "\nSpringfield ");
  EXPECT_EQ(own->stringByCountryCode("us"), " Springfield ");
}

class HostsFormater final : public OVAddressFormater {
 public:
  explicit HostsFormater(OVRef<OVObjectAddress> address) : OVAddressFormater(std::move(address)) {}
};

TEST_F(AddressFormater, ADerivedOneWithoutAnAddressPrintsNothing) {
  const HostsFormater formater(nullptr);
  EXPECT_EQ(formater.formatString(), "");
  EXPECT_EQ(formater.string(), "");
  EXPECT_EQ(formater.formatStringByCountryCode("de"), "");
  EXPECT_EQ(formater.stringByCountryCode("de"), "");
}

}  // namespace
