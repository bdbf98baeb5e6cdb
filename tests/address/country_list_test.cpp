#include <OVAddressBookSDK/country.h>

#include <algorithm>
#include <map>
#include <set>

#include <OVAddressBookSDK/locale.h>

#include "address/test_data.h"
#include "support/fake_locale.h"
#include "support/own_process.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;

std::vector<OVString> codesOf(const OVRef<OVList<OVCountry>>& countries) {
  std::vector<OVString> codes;
  for (const auto& country : *countries) codes.push_back(country->code());
  return codes;
}

OVRef<OVList<OVString>> threeCodes() { return OVList<OVString>::list({"DE", "US", "AF"}); }

TEST(CountryList, HoldsThePlatformsCodesThatHaveANameEachOnce) {
  expectInOwnProcess([] {
    std::map<std::string, std::string> names;
    for (const auto& row : addressTable("countries")) names.emplace(row.at(0), row.at(1));
    std::map<std::string, std::string> expected;
    const auto codes = OVLocale::currentLocale()->isoCountryCodes();
    for (const OVString& code : *codes) {
      std::string lower = code.str();
      for (char& c : lower) c = static_cast<char>(c - 'A' + 'a');
      if (const auto at = names.find(lower); at != names.end()) expected.insert(*at);
    }
    std::map<std::string, std::string> listed;
    const auto countries = OVCountry::allCountry();
    for (const auto& country : *countries)
      EXPECT_TRUE(listed.emplace(country->code(), country->name()).second) << country->code();
    EXPECT_EQ(listed, expected);
    EXPECT_GT(listed.size(), 150U);
  });
}

TEST(CountryList, IsOrderedByNameByteByByte) {
  expectInOwnProcess([] {
    const auto countries = OVCountry::allCountry();
    std::vector<std::string> names;
    for (const auto& country : *countries) names.push_back(country->name().str());
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(names.front(), "Afghanistan");
    const auto firstWithE =
        std::ranges::find_if(names, [](const std::string& name) { return name.starts_with('E'); });
    EXPECT_EQ(*firstWithE, "EI Salvador");
    EXPECT_EQ(*std::next(firstWithE), "Ecuador");
  });
}

TEST(CountryList, IsTheSameListAtEachCall) {
  EXPECT_EQ(OVCountry::allCountry(), OVCountry::allCountry());
}

TEST(CountryList, HoldsTheCountriesThatCodesGive) {
  expectInOwnProcess([] {
    const auto countries = OVCountry::allCountry();
    for (const auto& country : *countries)
      EXPECT_EQ(OVCountry::countryWithCode(country->code()), country) << country->code();
  });
}

TEST(CountryList, IsBuiltFromTheLocaleServiceOnce) {
  expectInOwnProcess([] {
    const auto codes = OVList<OVString>::list({"ZW", "XX", "AX", "DE", "YU", "AF"});
    const FakeLocale locale("en_US", codes);
    EXPECT_THAT(codesOf(OVCountry::allCountry()), ElementsAre("af", "de", "yu", "zw"));
    codes->push_back("FR");
    EXPECT_EQ(OVCountry::allCountry()->size(), 4U);
    // "US" is no code of this platform: what would resolve to it resolves to nothing.
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
    EXPECT_EQ(OVCountry::countryWithCode("ao"), countries->back());
    OVCountry::sort();
    EXPECT_THAT(codesOf(countries), ElementsAre("af", "ao", "de", "us"));
  });
}

TEST(CountryList, ACountryAddedAgainStandsThereTwice) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    const auto first = OVCountry::countryWithCode("de");
    OVCountry::addCountryByCode("de");
    EXPECT_THAT(codesOf(countries), ElementsAre("af", "de", "us", "de"));
    EXPECT_EQ(OVCountry::countryWithCode("de"), countries->back());
    EXPECT_NE(OVCountry::countryWithCode("de"), first);
  });
}

TEST(CountryList, ACodeWithoutANameAddsNothing) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    for (const OVString& code : {OVString("ax"), OVString(""), OVString()})
      OVCountry::addCountryByCode(code);
    EXPECT_EQ(countries->size(), 3U);
  });
}

TEST(CountryList, AMissingNameIsSortedAsTheEmptyOne) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    countries->push_back(OVCountry::initWithCodeName("empty", ""));
    countries->push_back(OVCountry::initWithCodeName("none", nullptr));
    countries->push_back(OVCountry::initWithCodeName("small", "angola"));
    OVCountry::sort();
    EXPECT_THAT(codesOf(countries), ElementsAre("empty", "none", "af", "de", "us", "small"));
  });
}

TEST(CountryList, SurvivesForeignObjectsInTheSharedList) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", threeCodes());
    const auto countries = OVCountry::allCountry();
    ov::cast<OVList<OVObject>>(countries)->push_back(OVString("no country"));
    OVCountry::sort();
    EXPECT_EQ(countries->size(), 4U);
    EXPECT_EQ(countries->front(), nullptr);
  });
}

}  // namespace
