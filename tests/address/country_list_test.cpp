#include <OVAddressBookSDK/country.h>

#include <vector>

#include "support/fakes/fake_locale.h"
#include "support/printers.h"
#include "support/processes/own_process.h"

namespace {

using testing::ElementsAre;

std::vector<OVString> codesOf(const OVList<OVCountry>& countries) {
  std::vector<OVString> codes;
  for (const auto& country : countries) codes.push_back(country->code());
  return codes;
}

OVList<OVString> threeCodes() { return OVList<OVString>::list({"DE", "US", "AF"}); }

TEST(CountryList, IsTheSameListAtEachCall) {
  EXPECT_EQ(OVCountry::allCountry(), OVCountry::allCountry());
}

TEST(CountryList, HoldsTheCountriesThatCodesGive) {
  expectInOwnProcess([] {
    const auto countries = OVCountry::allCountry();
    for (const auto& country : countries)
      EXPECT_EQ(OVCountry::countryWithCode(country->code()), country) << country->code();
  });
}

TEST(CountryList, IsBuiltFromTheLocaleServiceOnce) {
  expectInOwnProcess([] {
    const auto codes = OVList<OVString>::list({"ZW", "XX", "AX", "DE", "YU", "AF"});
    const FakeLocale locale("en_US", codes);
    EXPECT_THAT(codesOf(OVCountry::allCountry()), ElementsAre("af", "de", "yu", "zw"));
    codes.push_back("FR");
    EXPECT_EQ(OVCountry::allCountry().size(), 4U);
    // "US" is not a code of this platform: what would resolve to it resolves to nothing.
    EXPECT_EQ(OVCountry::countryWithCode("DE"), nullptr);
  });
}

TEST(CountryList, DoesNotExistBeforeItIsAskedFor) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    OVCountry::addCountryByCode("fr");
    OVCountry::sort();
    EXPECT_THAT(codesOf(OVCountry::allCountry()), ElementsAre("af", "de", "us"));
    EXPECT_EQ(OVCountry::countryWithCode("fr"), nullptr);
  });
}

TEST(CountryList, AnAddedCountryComesLastUntilTheNextSort) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    OVCountry::addCountryByCode("AO");
    EXPECT_THAT(codesOf(countries), ElementsAre("af", "de", "us", "ao"));
    EXPECT_EQ(OVCountry::countryWithCode("ao"), countries.back());
    OVCountry::sort();
    EXPECT_THAT(codesOf(countries), ElementsAre("af", "ao", "de", "us"));
  });
}

TEST(CountryList, ACountryAddedAgainIsThereTwice) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    const auto first = OVCountry::countryWithCode("de");
    OVCountry::addCountryByCode("de");
    EXPECT_THAT(codesOf(countries), ElementsAre("af", "de", "us", "de"));
    EXPECT_EQ(OVCountry::countryWithCode("de"), countries.back());
    EXPECT_NE(OVCountry::countryWithCode("de"), first);
  });
}

TEST(CountryList, ACodeWithoutANameAddsNothing) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    for (const OVString& code : {OVString("ax"), OVString(""), OVString()})
      OVCountry::addCountryByCode(code);
    EXPECT_EQ(countries.size(), 3U);
  });
}

TEST(CountryList, AMissingNameIsSortedAsTheEmptyOne) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    countries.push_back(OVCountry::initWithCodeName("empty", ""));
    countries.push_back(OVCountry::initWithCodeName("none", nullptr));
    countries.push_back(OVCountry::initWithCodeName("small", "angola"));
    OVCountry::sort();
    EXPECT_THAT(codesOf(countries), ElementsAre("empty", "none", "af", "de", "us", "small"));
  });
}

TEST(CountryList, WhatIsDoneToTheListDoesNotChangeWhatCodesGive) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    const auto germany = OVCountry::countryWithCode("de");
    countries.push_back(OVCountry::initWithCodeName("fr", "France"));
    EXPECT_EQ(OVCountry::countryWithCode("fr"), nullptr);
    countries.remove(germany);
    EXPECT_EQ(OVCountry::countryWithCode("de"), germany);
    countries.clear();
    EXPECT_EQ(OVCountry::countryWithCode("DE"), OVCountry::countryWithCode("us"));
    OVCountry::sort();
    OVCountry::addCountryByCode("ao");
    EXPECT_THAT(codesOf(OVCountry::allCountry()), ElementsAre("ao"));
    EXPECT_EQ(OVCountry::countryWithCode("ao"), countries.front());
  });
}

TEST(CountryList, SurvivesForeignObjectsInTheSharedList) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    ov::cast<OVList<OVObject>>(countries).push_back(OVString("no country"));
    OVCountry::sort();
    EXPECT_EQ(countries.size(), 4U);
    EXPECT_EQ(countries.front(), nullptr);
  });
}

}  // namespace
