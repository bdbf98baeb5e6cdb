#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/multiple_value.h>

#include "hosts/cards.h"
#include "mapping/countries.h"
#include "support/fakes/fake_locale.h"
#include "support/printers.h"

namespace {

using ov::card::countryCodeOf;
using testing::ElementsAre;

std::string address(const std::string& lines) {
  const std::string text = entry(*person(lines), OVProPertyAddress);
  return text.substr(text.find(": ") + 2);
}

TEST(Addresses, HaveTheFiveStandardFields) {
  EXPECT_EQ(address("ADR:;;12 Main\\, St;City;Region;12345;Germany"),
            "de|12 Main, St|12345|City|Region|Germany");
  EXPECT_EQ(address("ADR:;;Street"), "null|Street||||");
  EXPECT_EQ(address("ADR:;;a,b;c"), "null|a,b||c||");
}

TEST(Addresses, PutBoxAndExtensionBeforeTheStreet) {
  EXPECT_EQ(address("ADR:Box 1;Floor 2;Street 3"), "null|Box 1\nFloor 2\nStreet 3||||");
  EXPECT_EQ(address("ADR:Box 1;;;City"), "null|Box 1||City||");
}

TEST(Addresses, WithMorePartsAreKept) {
  EXPECT_EQ(entry(*person("ADR:;;a;b;c;d;e;f"), OVProPertyOther), "*ADR|ADR: ;;a;b;c;d;e;f");
  EXPECT_EQ(address("ADR:;;a;b;c;d;e;;"), "null|a|d|b|c|e");
}

TEST(Addresses, KnowTheirCountryByNameOrCode) {
  EXPECT_EQ(address("ADR:;;;;;;France"), "fr|||||France");
  EXPECT_EQ(address("ADR:;;;;;; fRANCE "), "fr||||| fRANCE ");
  EXPECT_EQ(address("ADR:;;;;;;FR"), "fr|||||FR");
  EXPECT_EQ(address("ADR:;;;;;;Deutschland"), "de|||||Deutschland");
  EXPECT_EQ(address("ADR;CC=AT:;;;;;;Deutschland"), "at|||||Deutschland");
  EXPECT_EQ(address("ADR;CC=xx:;;;;;;France"), "fr|||||France");
  EXPECT_EQ(address("ADR;CC=ZZ:;;;;;;France"), "null|||||France");
  EXPECT_EQ(address("a.ADR:;;x\na.X-ABADR:jp"), "jp|x||||");
  EXPECT_EQ(address("a.ADR:;;;;;;France\na.X-ABADR:nowhere"), "fr|||||France");
}

TEST(Addresses, DoNotAskTheLocaleForACountry) {
  const FakeLocale locale("no underscore");
  EXPECT_EQ(address("ADR:;;x"), "null|x||||");
}

TEST(Addresses, AreWrittenAndComeBack) {
  for (const char* line :
       {"ADR:;;12 Main\\, St;City\\;x;Region;12345;Germany", "ADR;TYPE=home:;;x;;;;",
        "ADR;CC=DE:;;;;;;Atlantis", "ADR;CC=ZZ:;;;;;;France", "ADR;CC=JP:;;a\\nb;;;;",
        "ADR;CC=FR:Box;;x;;;;France", "ADR;CC=FR:;;;;;;France"}) {
    EXPECT_THAT(writtenLines(person(line)), ElementsAre(line));
  }
}

TEST(Addresses, OfTheMainEntryArePreferred) {
  EXPECT_THAT(writtenLines(person("ADR;TYPE=home:;;a\nADR;TYPE=work;PREF=1;CC=DE:;;b")),
              ElementsAre("ADR;TYPE=home:;;a;;;;", "ADR;CC=DE;PREF=1;TYPE=work:;;b;;;;"));
}

TEST(CountryCodes, EveryCountryIsKnownByCodeAndName) {
  for (const OVRef<OVCountry> country : OVCountry::allCountry()) {
    EXPECT_EQ(countryCodeOf(country->code()), country->code());
    EXPECT_EQ(countryCodeOf(country->name()), country->code());
  }
}

TEST(CountryCodes, KnowNamesBesideThoseOfTheList) {
  const std::pair<const char*, const char*> rows[] = {
      {"USA", "us"},
      {"U.S.A.", "us"},
      {"United States of America", "us"},
      {"UK", "gb"},
      {"Great Britain", "gb"},
      {"Scotland", "gb"},
      {"South Korea", "kr"},
      {"Hong Kong", "hk"},
      {"El Salvador", "sv"},
      {"Kazakhstan", "kz"},
      {"Papua New Guinea", "pg"},
      {"The Netherlands", "nl"},
      {"Dominican Republic", "do"},
      {"Saint Lucia", "lc"},
      {"Czechia", "cz"},
      {"Russian Federation", "ru"},
      {"Cambodia", "kh"},
      {"Myanmar", "mm"},
  };
  for (const auto& [name, code] : rows) EXPECT_EQ(countryCodeOf(name), code) << name;
}

TEST(CountryCodes, KnowTheNamesInOtherLanguages) {
  const std::pair<const char*, const char*> rows[] = {
      {"Deutschland", "de"},
      {"DEUTSCHLAND", "de"},
      {"Polska", "pl"},
      {"\u00D6sterreich", "at"},
      {"\u00D6STERREICH", "at"},
      {"Espa\u00F1a", "es"},
      {"\u65E5\u672C", "jp"},
      {"Allemagne", "de"},
      {"\u0420\u043E\u0441\u0441\u0438\u044F", "ru"},
      {"\u4E2D\u56FD", "cn"},
      {"Schweiz", "ch"},
      {"Suisse", "ch"},
      {"Svizzera", "ch"},
      {"\u0395\u03BB\u03BB\u03AC\u03B4\u03B1", "gr"},
  };
  for (const auto& [name, code] : rows) EXPECT_EQ(countryCodeOf(name), code) << name;
}

TEST(CountryCodes, KnowNothingElse) {
  for (const char* text : {"", " ", "xx", "zz", "ax", "Atlantis", "us_posix"}) {
    EXPECT_EQ(countryCodeOf(text), nullptr) << text;
  }
}

}  // namespace
