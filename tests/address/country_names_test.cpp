#include <OVAddressBookSDK/country.h>

#include <set>

#include "address/test_data.h"
#include "support/printers.h"

namespace {

TEST(CountryNames, EveryRowAnswersUnlessAnEarlierRowHasItsCode) {
  const auto rows = addressTable("countries");
  ASSERT_EQ(rows.size(), 183U);
  std::set<std::string> met;
  for (const auto& row : rows) {
    const auto& code = row.at(0);
    const auto name = OVCountry::countryNameByCode(code);
    if (met.insert(code).second)
      EXPECT_EQ(name, row.at(1)) << code;
    else
      EXPECT_NE(name, row.at(1)) << code;
  }
  EXPECT_EQ(met.size(), 181U);
}

TEST(CountryNames, NoOtherTwoLettersHaveAName) {
  std::set<std::string> codes;
  for (const auto& row : addressTable("countries")) codes.insert(row.at(0));
  for (char first = 'a'; first <= 'z'; ++first)
    for (char second = 'a'; second <= 'z'; ++second) {
      const std::string code{first, second};
      EXPECT_EQ(OVCountry::countryNameByCode(code).isNull(), !codes.contains(code)) << code;
    }
}

TEST(CountryNames, TheFirstOfTwoRowsWins) {
  EXPECT_EQ(OVCountry::countryNameByCode("LC"), "Saint Lueia");
  EXPECT_EQ(OVCountry::countryNameByCode("VC"), "Saint Vincent");
}

TEST(CountryNames, AVanishedCountryHasItsName) {
  EXPECT_EQ(OVCountry::countryNameByCode("yu"), "Yugoslavia");
  EXPECT_EQ(OVCountry::countryNameByCode("zr"), "Zaire");
}

TEST(CountryNames, CaseDoesNotMatter) {
  for (const char* code : {"DE", "De", "dE", "de"})
    EXPECT_EQ(OVCountry::countryNameByCode(code), "Germany") << code;
}

TEST(CountryNames, LettersOutsideAsciiMakeNoCode) {
  // The Kelvin sign is a k in upper case, the long s one in lower case.
  EXPECT_EQ(OVCountry::countryNameByCode("\u212AR"), nullptr);
  EXPECT_EQ(OVCountry::countryNameByCode("\u017Fe"), nullptr);
  EXPECT_EQ(OVCountry::countryNameByCode("\u0130T"), nullptr);
  EXPECT_EQ(OVCountry::countryNameByCode("\u0131t"), nullptr);
}

TEST(CountryNames, MistakesAreKept) {
  EXPECT_EQ(OVCountry::countryNameByCode("pg"), "Papua New Cuinea");
  EXPECT_EQ(OVCountry::countryNameByCode("sv"), "EI Salvador");
  EXPECT_EQ(OVCountry::countryNameByCode("kh"), "Kampuchea (Cambodia )");
  EXPECT_EQ(OVCountry::countryNameByCode("mm"), "Burma");
}

TEST(CountryNames, WhatIsNoCodeHasNone) {
  for (const char* code : {"", "d", "deu", "xx", " de", "de ", "d1", "--", "d\u00e9"})
    EXPECT_EQ(OVCountry::countryNameByCode(code), nullptr) << code;
  EXPECT_EQ(OVCountry::countryNameByCode(nullptr), nullptr);
  EXPECT_EQ(OVCountry::countryNameByCode(std::string("de\0", 3)), nullptr);
}

}  // namespace
