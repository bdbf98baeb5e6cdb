#include <OVAddressBookSDK/country.h>

#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "support/fakes/fake_locale.h"
#include "support/fakes/recording_defaults.h"
#include "support/printers.h"
#include "support/processes/own_process.h"

namespace {

TEST(LocaleCountry, StandCodeIsWhatFollowsTheFirstUnderscore) {
  EXPECT_EQ(OVCountry::standCode("en_US"), "us");
  EXPECT_EQ(OVCountry::standCode("de_DE"), "de");
  EXPECT_EQ(OVCountry::standCode("zh_CN"), "cn");
  EXPECT_EQ(OVCountry::standCode("sr_Latn_RS"), "latn_rs");
  EXPECT_EQ(OVCountry::standCode("en_US_POSIX"), "us_posix");
}

TEST(LocaleCountry, StandCodeMayBeEmpty) {
  EXPECT_EQ(OVCountry::standCode("_"), "");
  EXPECT_EQ(OVCountry::standCode("en_"), "");
  EXPECT_EQ(OVCountry::standCode("_US"), "us");
  EXPECT_EQ(OVCountry::standCode("__"), "_");
}

TEST(LocaleCountry, StandCodeLowersTheLettersOfAscii) {
  EXPECT_EQ(OVCountry::standCode("tr_I"), "i");
  EXPECT_EQ(OVCountry::standCode("x_AZ@[`{"), "az@[`{");
  EXPECT_EQ(OVCountry::standCode("tr_\u0130"), "\u0130");
}

TEST(LocaleCountry, IsThatOfTheEnvironmentAlsoWithAScriptOrAVariant) {
  expectInOwnProcess([] {
    const RecordedDefaults defaults;
    const std::pair<const char*, const char*> expected[] = {
        {"sr_RS@latin", "rs"}, {"uz_UZ.UTF-8@cyrillic", "uz"}, {"ca_ES@valencia", "es"},
        {"zh_Hant_TW", "tw"},  {"de_CH.UTF-8@euro", "ch"},     {"C.UTF-8", "us_posix"}};
    for (const auto& [name, code] : expected) {
      ::setenv("LC_ALL", name, 1);
      EXPECT_EQ(OVCountry::localeCode(), code) << name;
    }
    ::setenv("LC_ALL", "uz_UZ@cyrillic", 1);
    EXPECT_EQ(OVCountry::local()->name(), "Uzbekistan");
    ::setenv("LC_ALL", "ca_ES@valencia", 1);
    EXPECT_EQ(OVCountry::defaultCountry()->name(), "Spain");
    // A code without a name is that of the United States, as everywhere.
    ::setenv("LC_ALL", "sr_RS@latin", 1);
    EXPECT_EQ(OVCountry::local(), OVCountry::countryWithCode("us"));
    ::setenv("LC_ALL", "C", 1);
    EXPECT_EQ(OVCountry::local(), nullptr);
  });
}

TEST(LocaleCountry, StandCodeOfNullIsNull) { EXPECT_EQ(OVCountry::standCode(nullptr), nullptr); }

TEST(LocaleCountry, StandCodeThrowsWithoutAnUnderscore) {
  for (const char* identifier : {"C", "C.UTF-8", "de", "", "de-DE"})
    EXPECT_THROW((void)OVCountry::standCode(identifier), std::out_of_range) << identifier;
}

TEST(LocaleCountry, TheErrorNamesTheIdentifier) {
  try {
    (void)OVCountry::standCode("de-DE");
    FAIL() << "nothing was thrown";
  } catch (const std::out_of_range& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("\"de-DE\""));
    EXPECT_THAT(error.what(), testing::HasSubstr("underscore"));
  }
}

TEST(LocaleCountry, TheErrorReachesEveryCallerOfTheLocale) {
  const RecordedDefaults defaults;
  const FakeLocale locale("C");
  EXPECT_THROW((void)OVCountry::localeCode(), std::out_of_range);
  EXPECT_THROW((void)OVCountry::local(), std::out_of_range);
  EXPECT_THROW((void)OVCountry::defaultCountry(), std::out_of_range);
  EXPECT_THROW((void)OVCountry::countryWithCode(nullptr), std::out_of_range);
}

TEST(LocaleCountry, ADefaultCountryNeedsNoLocale) {
  const RecordedDefaults defaults;
  const FakeLocale locale("C");
  OVCountry::setDefaultCountry(OVCountry::countryWithCode("fr"));
  EXPECT_EQ(OVCountry::defaultCountry(), OVCountry::countryWithCode("fr"));
  EXPECT_EQ(OVCountry::countryWithCode("de")->name(), "Germany");
}

TEST(LocaleCountry, ADefaultThatResolvesNoMoreNeedsTheLocale) {
  const RecordedDefaults defaults;
  const FakeLocale locale("C");
  OVUserDefaults::standardUserDefaults()->setObjectForKey(OVString("zz"), "Default_Country_Key");
  EXPECT_THROW((void)OVCountry::defaultCountry(), std::out_of_range);
}

TEST(LocaleCountry, LocalFollowsTheLocaleAtEachCall) {
  {
    const FakeLocale locale("ja_JP");
    EXPECT_EQ(OVCountry::localeCode(), "jp");
    EXPECT_EQ(OVCountry::local(), OVCountry::countryWithCode("jp"));
  }
  const FakeLocale locale("tr_TR");
  EXPECT_EQ(OVCountry::localeCode(), "tr");
  EXPECT_EQ(OVCountry::local(), OVCountry::countryWithCode("tr"));
}

TEST(LocaleCountry, LocalIsNullForAVariantOrAScript) {
  for (const char* identifier : {"en_US_POSIX", "sr_Latn_RS", "en_"}) {
    const FakeLocale locale(identifier);
    EXPECT_EQ(OVCountry::local(), nullptr) << identifier;
    EXPECT_EQ(OVCountry::countryWithCode(nullptr), nullptr) << identifier;
  }
}

TEST(LocaleCountry, LocalIsNullWithoutAnyIdentifier) {
  const FakeLocale locale(nullptr, OVList<OVString>::list({"US"}));
  EXPECT_EQ(OVCountry::localeCode(), nullptr);
  EXPECT_EQ(OVCountry::local(), nullptr);
}

TEST(LocaleCountry, LocalOfACountryWithoutANameIsTheUnitedStates) {
  const FakeLocale locale("sv_AX");
  EXPECT_EQ(OVCountry::local(), OVCountry::countryWithCode("us"));
}

}  // namespace
