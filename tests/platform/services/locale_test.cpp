#include <OVAddressBookSDK/locale.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <set>
#include <string>

#include "support/printers.h"
#include "support/processes/child_process.h"

namespace {

class Locale : public testing::Test {
 protected:
  ~Locale() override { OVLocale::setCurrentLocale(nullptr); }

  OVString lower(const OVString& text) const { return locale_->lowercase(text); }

  OVRef<OVLocale> locale_ = OVLocale::currentLocale();
};

TEST_F(Locale, CountryCodesAreDistinctPairsOfCapitals) {
  const auto codes = locale_->isoCountryCodes();
  std::set<std::string> distinct;
  for (const OVString& code : codes) {
    const std::string text = code.str();
    EXPECT_EQ(text.size(), 2U) << text;
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; }))
        << text;
    distinct.insert(text);
  }
  EXPECT_EQ(distinct.size(), codes.size());
  EXPECT_GE(codes.size(), 240U);
}

TEST_F(Locale, CountryCodesHoldTheWorld) {
  const auto codes = locale_->isoCountryCodes();
  for (const char* code : {"AF", "CN", "DE", "GB", "JP", "TR", "US", "ZW"}) {
    EXPECT_TRUE(codes.contains(code)) << code;
  }
  for (const char* code : {"XX", "ZZ", "us", "EU"}) EXPECT_FALSE(codes.contains(code)) << code;
}

TEST_F(Locale, TheListOfCountryCodesIsTheCallersOwn) {
  const auto before = locale_->isoCountryCodes().size();
  locale_->isoCountryCodes().clear();
  EXPECT_EQ(locale_->isoCountryCodes().size(), before);
}

TEST_F(Locale, TheIdentifierIsReadFromTheEnvironmentOnEachCall) {
  ::setenv("LC_ALL", "de_DE.UTF-8@euro", 1);
  EXPECT_EQ(locale_->currentLocaleIdentifier(), "de_DE");
  ::setenv("LC_ALL", "sr_RS@latin", 1);
  EXPECT_EQ(locale_->currentLocaleIdentifier(), "sr-Latn_RS");
  ::unsetenv("LC_ALL");
  ::setenv("LC_MESSAGES", "", 1);
  ::setenv("LANG", "C.UTF-8", 1);
  EXPECT_EQ(locale_->currentLocaleIdentifier(), "en_US_POSIX");
}

TEST_F(Locale, AHostChoosesTheIdentifier) {
  ::setenv("LC_ALL", "de_DE", 1);
  const auto original = OVLocale::currentLocale();
  OVLocale::setCurrentLocale(OVLocale::withIdentifier("fr_CH"));
  EXPECT_EQ(OVLocale::currentLocale()->currentLocaleIdentifier(), "fr_CH");
  OVLocale::setCurrentLocale(nullptr);
  EXPECT_EQ(OVLocale::currentLocale(), original);
  EXPECT_EQ(OVLocale::currentLocale()->currentLocaleIdentifier(), "de_DE");
}

TEST_F(Locale, AChosenIdentifierStaysAsItIs) {
  EXPECT_EQ(OVLocale::withIdentifier("x y")->currentLocaleIdentifier(), "x y");
  EXPECT_EQ(OVLocale::withIdentifier("")->currentLocaleIdentifier(), "");
  EXPECT_EQ(OVLocale::withIdentifier(nullptr)->currentLocaleIdentifier(), "en_US_POSIX");
}

TEST_F(Locale, LowersAllOfUnicode) {
  EXPECT_EQ(lower("AZaz09-_"), "azaz09-_");
  EXPECT_EQ(lower("\u00C4\u0416\u0391\u1E9E\uFF21"), "\u00E4\u0436\u03B1\u00DF\uFF41");
  EXPECT_EQ(lower("\U00010400"), "\U00010428");
}

TEST_F(Locale, LowersTheDottedCapitalIToTwoCharacters) {
  EXPECT_EQ(lower("\u0130"), "i\u0307");
  EXPECT_EQ(lower("A\u0130B"), "ai\u0307b");
}

TEST_F(Locale, LowersASigmaByItsPlaceInTheWord) {
  EXPECT_EQ(lower("\u039F\u03A3"), "\u03BF\u03C2");
  EXPECT_EQ(lower("\u03A3\u039F"), "\u03C3\u03BF");
}

TEST_F(Locale, CaseDoesNotDependOnTheLocale) {
  for (const char* name :
       {"C", "C.UTF-8", "de_DE.UTF-8", "tr_TR.UTF-8", "az_AZ", "lt_LT", "ja_JP"}) {
    // In a process of its own: a locale may be read once and kept.
    ChildProcess process([&] {
      ::setenv("LC_ALL", name, 1);
      std::setlocale(LC_ALL, "");
      return lower("I\u0130\u00CC") == "ii\u0307\u00EC" &&
             OVLocale::withIdentifier(name)->lowercase("I") == "i";
    });
    EXPECT_TRUE(process.succeeded()) << name;
  }
}

TEST_F(Locale, NullAndEmptyStayWhatTheyAre) {
  EXPECT_TRUE(lower(nullptr).isNull());
  EXPECT_EQ(lower(""), "");
}

TEST_F(Locale, TextThatDoesNotChangeKeepsItsIdentity) {
  const OVString text("already lower");
  EXPECT_TRUE(lower(text).isSame(text));
}

TEST_F(Locale, TextMayHoldNuls) {
  EXPECT_EQ(lower(std::string_view("A\0B", 3)), std::string_view("a\0b", 3));
}

}  // namespace
