#include <algorithm>
#include <sstream>

#include "ovbook_test.h"

using testing::Contains;
using testing::HasSubstr;

namespace {

class Countries : public OvbookTest {
 protected:
  std::vector<std::string> lines() {
    std::istringstream stream(ovbook({"countries"}).out);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }
};

class DefaultCountry : public OvbookTest {
 protected:
  Outcome countryIn(const std::string& locale) {
    return ovbookIn({.environment = {"LANG=" + locale}}, {"country"});
  }
};

Outcome noCountry() {
  return {1, "", "ovbook: no default country has been chosen, and the locale names none\n"};
}

}  // namespace

TEST_F(Countries, AreListedByName) {
  const std::vector<std::string> all = lines();
  ASSERT_GT(all.size(), 150U);
  EXPECT_EQ(all.front(), "af\tAfghanistan");
  EXPECT_THAT(all, Contains("kh\tKampuchea (Cambodia )"));
  EXPECT_TRUE(std::is_sorted(all.begin(), all.end(), [](const auto& a, const auto& b) {
    return a.substr(3) < b.substr(3);
  }));
}

TEST_F(DefaultCountry, IsTheLocalOneAtFirst) {
  EXPECT_EQ(countryIn("de_DE.UTF-8"), success("de\tGermany\n"));
  EXPECT_EQ(countryIn("ja_JP"), success("jp\tJapan\n"));
}

TEST_F(DefaultCountry, IsReadByTheNextProcess) {
  EXPECT_EQ(ovbook({"country", "fr"}), success());
  EXPECT_EQ(countryIn("de_DE"), success("fr\tFrance\n"));
}

TEST_F(DefaultCountry, LocalesWithoutACountryGiveNone) {
  EXPECT_EQ(countryIn("C"), noCountry());
  EXPECT_EQ(countryIn("de"), noCountry());
}

TEST_F(DefaultCountry, IsSetByAKnownLowerCaseCodeOnly) {
  for (const char* code : {"DE", "xx", "aq", "", "de_DE"}) {
    EXPECT_EQ(
        ovbook({"country", code}),
        failure(std::string(code) + ": not a country code (\"ovbook countries\" lists them)"));
  }
  EXPECT_EQ(ovbook({"country"}), success("us\tUnited States\n"));
}

TEST_F(DefaultCountry, ThatCannotBeStoredIsAFailure) {
  const Outcome outcome =
      ovbookIn({.environment = {"XDG_CONFIG_HOME=/dev/null"}}, {"country", "fr"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("the default country could not be stored"));
}
