#include <OVAddressBookSDK/country.h>

#include <OVAddressBookSDK/locale.h>

#include "support/fakes/fake_locale.h"
#include "support/printers.h"

namespace {

OVString nameOf(const OVRef<OVCountry>& country) {
  return country == nullptr ? OVString() : country->name();
}

TEST(Country, KeepsWhatItIsMadeOf) {
  const auto country = OVCountry::initWithCodeName("DE", "Deutschland");
  EXPECT_EQ(country->code(), "DE");
  EXPECT_EQ(country->name(), "Deutschland");
  const auto nameless = OVCountry::initWithCodeName(nullptr, nullptr);
  EXPECT_EQ(nameless->code(), nullptr);
  EXPECT_EQ(nameless->name(), nullptr);
}

TEST(Country, IsNotArchived) {
  EXPECT_EQ(OVCountry::initWithCodeName("de", "Germany")->classForCoder(), nullptr);
}

TEST(Country, ALowerCaseCodeGivesItsCountry) {
  const auto germany = OVCountry::countryWithCode("de");
  ASSERT_NE(germany, nullptr);
  EXPECT_EQ(germany->code(), "de");
  EXPECT_EQ(germany->name(), "Germany");
  EXPECT_EQ(OVCountry::countryWithCode("de"), germany);
}

TEST(Country, AnUpperCaseCodeGivesTheUnitedStates) {
  const auto unitedStates = OVCountry::countryWithCode("us");
  for (const char* code : {"DE", "De", "dE", "US", "FR"})
    EXPECT_EQ(OVCountry::countryWithCode(code), unitedStates) << code;
}

TEST(Country, AnIsoCodeWithoutANameGivesTheUnitedStates) {
  ASSERT_EQ(OVCountry::countryNameByCode("ax"), nullptr);
  EXPECT_EQ(nameOf(OVCountry::countryWithCode("ax")), "United States");
  EXPECT_EQ(nameOf(OVCountry::countryWithCode("AX")), "United States");
}

TEST(Country, AnUnknownCodeGivesNone) {
  for (const char* code : {"xx", "XX", "", "usa", "u", "yu", "us_posix", "us "})
    EXPECT_EQ(OVCountry::countryWithCode(code), nullptr) << code;
}

TEST(Country, LettersOutsideAsciiMakeNoCode) {
  // The dotless i and the long s are an I and an S in upper case.
  for (const char* code : {"\u0131t", "\u0130T", "\u017Fe"})
    EXPECT_EQ(OVCountry::countryWithCode(code), nullptr) << code;
}

TEST(Country, ANullCodeGivesTheCountryOfTheLocale) {
  const FakeLocale locale("de_DE");
  EXPECT_EQ(OVCountry::countryWithCode(nullptr), OVCountry::countryWithCode("de"));
}

}  // namespace
