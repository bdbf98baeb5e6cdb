#include <OVAddressBookSDK/address_formater.h>

#include <map>
#include <set>

#include "address/test_data.h"
#include "support/fakes/fake_locale.h"
#include "support/printers.h"

namespace {

using Fields = OVList<OVAdressField>;

std::string wordOf(const OVAdressField& field) {
  return field.name().str().substr(std::string("OVAddressField").size());
}

std::string wordsOf(const Fields& fields) {
  std::string words;
  for (const auto& field : fields) words += (words.empty() ? "" : " + ") + wordOf(*field);
  return words;
}

std::string linesOf(const OVList<Fields>& layout) {
  std::string lines;
  for (const auto& line : layout) lines += (lines.empty() ? "" : " / ") + wordsOf(line);
  return lines;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

/// Code to layout, after the list of layouts.
std::map<std::string, std::string> layouts() {
  std::map<std::string, std::string> layoutOfCode;
  for (const auto& row : addressTable("layouts")) {
    std::istringstream codes(replaced(row.at(1), ",", " "));
    for (std::string code; codes >> code;) layoutOfCode.emplace(code, row.at(0));
  }
  return layoutOfCode;
}

TEST(Layouts, EveryCodeHasTheLayoutOfItsRow) {
  EXPECT_EQ(addressTable("layouts").size(), 37U);
  const auto expected = layouts();
  EXPECT_EQ(expected.size(), 172U);
  for (const auto& [code, lines] : expected) {
    EXPECT_EQ(linesOf(OVAddressFormater::fieldFormaterByCountryCode(code)), lines) << code;
    EXPECT_EQ(wordsOf(OVAddressFormater::fieldArrayByCountryCode(code)),
              replaced(lines, " / ", " + "))
        << code;
  }
}

TEST(Layouts, TheListOfCodesIsThatOfTheRows) {
  const auto listed = addressTable("layout_codes");
  EXPECT_EQ(listed.size(), 172U);
  std::set<std::string> codes;
  for (const auto& row : listed) codes.insert(row.at(0));
  std::set<std::string> inRows;
  for (const auto& [code, lines] : layouts()) inRows.insert(code);
  EXPECT_EQ(codes, inRows);
}

TEST(Layouts, EveryOtherCodeHasTheFirstLayout) {
  const auto expected = layouts();
  const std::string first = expected.at("us");
  std::set<std::string> others{"", "u", "US", "De", "DE", "usa", "us ", " us", "us_posix", "xx"};
  for (char a = 'a'; a <= 'z'; ++a)
    for (char b = 'a'; b <= 'z'; ++b)
      if (const std::string code{a, b}; !expected.contains(code)) others.insert(code);
  for (const char* code : {"ai", "ck", "cz", "gf", "gi", "gu", "ms", "na", "yu", "zr"})
    EXPECT_TRUE(others.contains(code)) << code;
  for (const std::string& code : others) {
    EXPECT_EQ(linesOf(OVAddressFormater::fieldFormaterByCountryCode(code)), first) << code;
    EXPECT_EQ(wordsOf(OVAddressFormater::fieldArrayByCountryCode(code)),
              replaced(first, " / ", " + "))
        << code;
  }
}

TEST(Layouts, ANullCodeHasNoFields) {
  EXPECT_TRUE(OVAddressFormater::fieldFormaterByCountryCode(nullptr).empty());
  EXPECT_TRUE(OVAddressFormater::fieldArrayByCountryCode(nullptr).empty());
}

TEST(Layouts, TheUnitedKingdomInOneList) {
  const auto fields = OVAddressFormater::fieldArrayByCountryCode("gb");
  ASSERT_EQ(fields.size(), 5U);
  EXPECT_EQ(fields[0]->name(), OVAddressFieldStreet);
  EXPECT_EQ(fields[1]->name(), OVAddressFieldTownCity);
  EXPECT_EQ(fields[2]->name(), OVAddressFieldcounty);
  EXPECT_EQ(fields[3]->name(), OVAddressFieldPostcode);
  EXPECT_EQ(fields[4]->name(), OVAddressFieldCountryOrArea);
}

TEST(Layouts, FieldsAreThoseOfTheCatalogue) {
  for (const auto& [code, lines] : layouts()) {
    const auto fields = OVAddressFormater::fieldArrayByCountryCode(code);
    for (const auto& field : fields)
      EXPECT_EQ(field, OVAdressField::fieldWithName(field->name())) << code;
  }
}

TEST(Layouts, ListsAreTheCallersOwn) {
  const auto layout = OVAddressFormater::fieldFormaterByCountryCode("de");
  const auto fields = OVAddressFormater::fieldArrayByCountryCode("de");
  layout.front().clear();
  layout.erase(1);
  fields.clear();
  const auto fresh = OVAddressFormater::fieldFormaterByCountryCode("de");
  EXPECT_NE(fresh, layout);
  EXPECT_EQ(linesOf(fresh), "Street / PostalCode + City / CountryOrArea");
  EXPECT_EQ(OVAddressFormater::fieldArrayByCountryCode("de").size(), 4U);
}

TEST(Layouts, TheLocalLayoutIsThatOfTheLocale) {
  const FakeLocale locale("ja_JP");
  EXPECT_EQ(linesOf(OVAddressFormater::fieldFormaterLocal()),
            "PostalCode / Prefecture + CountryCity / FurtherDivisions / CountryOrArea");
  EXPECT_EQ(wordsOf(OVAddressFormater::fieldArrayLocal()),
            "PostalCode + Prefecture + CountryCity + FurtherDivisions + CountryOrArea");
}

TEST(Layouts, TheLocalLayoutIsEmptyWithoutALocalCountry) {
  const FakeLocale locale("en_US_POSIX");
  EXPECT_TRUE(OVAddressFormater::fieldFormaterLocal().empty());
  EXPECT_TRUE(OVAddressFormater::fieldArrayLocal().empty());
}

TEST(Layouts, TheLocalLayoutNeedsALocaleWithAnUnderscore) {
  const FakeLocale locale("C");
  EXPECT_THROW((void)OVAddressFormater::fieldFormaterLocal(), std::out_of_range);
  EXPECT_THROW((void)OVAddressFormater::fieldArrayLocal(), std::out_of_range);
}

}  // namespace
