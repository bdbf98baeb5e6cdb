#include "ovbook_test.h"

namespace {

class Layout : public OvbookTest {};

class Format : public OvbookTest {
 protected:
  Outcome format(const std::string& country, Arguments values) {
    values.insert(values.begin(), {"format", "--country", country});
    return ovbook(values);
  }
};

}  // namespace

TEST_F(Layout, IsPrintedLineByLine) {
  EXPECT_EQ(ovbook({"layout", "us"}), success("Street\nCity + State + ZIP\nCountryOrArea\n"));
  EXPECT_EQ(ovbook({"layout", "gb"}),
            success("Street\nTownCity + county + Postcode\nCountryOrArea\n"));
  EXPECT_EQ(ovbook({"layout", "eg"}), success("Street\nAdjacentarea\nProvince\nCountryOrArea\n"));
}

TEST_F(Layout, OtherCodesHaveThatOfTheUnitedStates) {
  const Outcome unitedStates = ovbook({"layout", "us"});
  for (const char* code : {"", "DE", "xx", "[de]"}) {
    EXPECT_EQ(ovbook({"layout", code}), unitedStates) << code;
  }
}

TEST_F(Format, FollowsTheCountry) {
  const Arguments values{"Street=Weg 1", "City=Ulm", "Province=Bayern", "PostalCode=89073"};
  EXPECT_EQ(format("de", values), success("Weg 1\n89073 Ulm\n"));
  EXPECT_EQ(format("us", values), success("Weg 1\nUlm Bayern 89073\n"));
  EXPECT_EQ(format("ua", values), success("Weg 1\nUlm Bayern Bayern\n89073\n"));
  EXPECT_EQ(format("DE", values), format("us", values));
}

TEST_F(Format, OneLineIsOneLine) {
  EXPECT_EQ(ovbook({"format", "--one-line", "--country", "de", "City=Ulm", "Street=Weg 1",
                    "CountryOrArea=Germany"}),
            success("Weg 1 Ulm Germany\n"));
}

TEST_F(Format, TakesTheWordsOfEveryLayout) {
  EXPECT_EQ(format("gb", {"Street=1 Lane", "TownCity=Ely", "county=Cambs", "Postcode=CB7"}),
            success("1 Lane\nEly Cambs CB7\n"));
  EXPECT_EQ(format("jp", {"FurtherDivisions=1-2-3", "Prefecture=Tokyo", "CountryCity=Shibuya"}),
            success("Tokyo Shibuya\n1-2-3\n"));
}

TEST_F(Format, TheLastValueOfAFieldCountsAndAnEmptyOneRemovesIt) {
  EXPECT_EQ(format("de", {"City=Ulm", "City=Bonn"}), success("Bonn\n"));
  EXPECT_EQ(format("de", {"City=Ulm", "City="}), success());
}

TEST_F(Format, ValuesAreKeptAsTheyAre) {
  EXPECT_EQ(format("de", {"Street= [a=b,c] ", "City={}"}), success(" [a=b,c] \n{}\n"));
  EXPECT_EQ(format("de", {"Street=Hinterhaus\nWeg 1"}), success("Hinterhaus\nWeg 1\n"));
}

TEST_F(Format, ControlCharactersAreShownEscaped) {
  EXPECT_EQ(format("de", {"City=\033[2JUlm"}), success("\\u001b[2JUlm\n"));
  EXPECT_EQ(ovbook({"format", "--one-line", "--country", "de", "City=a\nb"}), success("a\\nb\n"));
}

TEST_F(Format, NoValuesGiveNoLines) {
  EXPECT_EQ(format("de", {}), success());
  EXPECT_EQ(ovbook({"format", "--one-line", "--country", "de"}), success("\n"));
}

TEST_F(Format, UnknownFieldsAreFailures) {
  for (const char* word : {"Strasse", "city", "", "OVAddressFieldCity"}) {
    EXPECT_EQ(format("de", {"City=Ulm", std::string(word) + "=x"}),
              failure(std::string(word) +
                      ": not an address field (\"ovbook layout CODE\" shows those of a country)"));
  }
}

TEST_F(Format, ValuesNeedAField) {
  EXPECT_EQ(format("de", {"Ulm"}),
            failure("Ulm: an address value has the form FIELD=VALUE, such as City=Uppsala"));
}

TEST_F(Format, NeedsACountry) {
  EXPECT_EQ(ovbook({"format", "City=Ulm"}),
            failure("--country is required (see ovbook format --help)"));
}
