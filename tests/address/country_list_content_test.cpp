#include <OVAddressBookSDK/country.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include <OVAddressBookSDK/locale.h>

#include "address/test_data.h"
#include "support/printers.h"
#include "support/processes/own_process.h"

namespace {

using Names = std::map<std::string, std::string>;

std::string lowerCase(std::string code) {
  for (char& c : code) c = static_cast<char>(c - 'A' + 'a');
  return code;
}

/// The platform's codes that have a name, with the name.
Names expectedNames() {
  Names vocabulary;
  for (const auto& row : addressTable("countries")) vocabulary.emplace(row.at(0), row.at(1));
  Names expected;
  const auto codes = OVLocale::currentLocale()->isoCountryCodes();
  for (const OVString& code : codes)
    if (const auto at = vocabulary.find(lowerCase(code.str())); at != vocabulary.end())
      expected.insert(*at);
  return expected;
}

std::vector<std::string> listedNames() {
  std::vector<std::string> names;
  const auto countries = OVCountry::allCountry();
  for (const auto& country : countries) names.push_back(country->name().str());
  return names;
}

/// The list as it is when it is built under one of several locales of the environment.
class CountryListIn : public testing::TestWithParam<const char*> {};

TEST_P(CountryListIn, HoldsThePlatformsCodesThatHaveANameEachOnce) {
  expectInOwnProcess([] {
    ::setenv("LC_ALL", GetParam(), 1);
    Names listed;
    const auto countries = OVCountry::allCountry();
    for (const auto& country : countries)
      EXPECT_TRUE(listed.emplace(country->code(), country->name()).second) << country->code();
    EXPECT_EQ(listed, expectedNames());
    EXPECT_GT(listed.size(), 150U);
  });
}

TEST_P(CountryListIn, IsOrderedByNameByteByByte) {
  expectInOwnProcess([] {
    ::setenv("LC_ALL", GetParam(), 1);
    const auto names = listedNames();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(names.front(), "Afghanistan");
    const auto firstWithE =
        std::ranges::find_if(names, [](const std::string& name) { return name.starts_with('E'); });
    EXPECT_EQ(*firstWithE, "EI Salvador");
    EXPECT_EQ(*std::next(firstWithE), "Ecuador");
  });
}

INSTANTIATE_TEST_SUITE_P(Locale, CountryListIn,
                         testing::Values("C", "C.UTF-8", "de_DE.UTF-8", "tr_TR.UTF-8",
                                         "ja_JP.UTF-8"),
                         [](const auto& instance) {
                           std::string name = instance.param;
                           std::erase_if(name, [](char c) { return std::isalnum(c) == 0; });
                           return name;
                         });

}  // namespace
