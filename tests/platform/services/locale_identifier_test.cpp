#include "platform/services/locale_identifier.h"

#include <map>
#include <string>

namespace {

struct Row {
  const char* posix;
  const char* identifier;
};

std::ostream& operator<<(std::ostream& stream, const Row& row) { return stream << row.posix; }

class LocaleIdentifier : public testing::TestWithParam<Row> {};

TEST_P(LocaleIdentifier, IsMadeOfThePosixName) {
  EXPECT_EQ(ov::localeIdentifierOf(GetParam().posix), GetParam().identifier);
}

INSTANTIATE_TEST_SUITE_P(Plain, LocaleIdentifier,
                         testing::Values(Row{"de_DE", "de_DE"}, Row{"en_US", "en_US"},
                                         Row{"zh_CN", "zh_CN"}, Row{"de", "de"},
                                         Row{"fil_PH", "fil_PH"}, Row{"es_419", "es_419"},
                                         Row{"sr_Latn_RS", "sr-Latn_RS"},
                                         Row{"zh_Hant", "zh-Hant"}));

INSTANTIATE_TEST_SUITE_P(Encoding, LocaleIdentifier,
                         testing::Values(Row{"de_DE.UTF-8", "de_DE"}, Row{"de_DE.", "de_DE"},
                                         Row{"ja_JP.eucJP", "ja_JP"}, Row{"de.UTF-8", "de"},
                                         Row{"de_DE.UTF-8@euro", "de_DE"}));

INSTANTIATE_TEST_SUITE_P(
    ScriptModifier, LocaleIdentifier,
    testing::Values(Row{"sr_RS@latin", "sr-Latn_RS"}, Row{"sr_RS.UTF-8@latin", "sr-Latn_RS"},
                    Row{"sr@latin", "sr-Latn"}, Row{"uz_UZ@cyrillic", "uz-Cyrl_UZ"},
                    Row{"ks_IN@devanagari", "ks-Deva_IN"}, Row{"sd_IN@Devanagari", "sd-Deva_IN"},
                    Row{"pa_PK@arabic", "pa-Arab_PK"}, Row{"zh_SG@hans", "zh-Hans_SG"},
                    Row{"zh_HK@hant", "zh-Hant_HK"}, Row{"sr_Cyrl_RS@latin", "sr-Cyrl_RS"}));

INSTANTIATE_TEST_SUITE_P(OtherModifier, LocaleIdentifier,
                         testing::Values(Row{"de_DE@euro", "de_DE"}, Row{"ca_ES@valencia", "ca_ES"},
                                         Row{"ca_ES.UTF-8@valencia", "ca_ES"},
                                         Row{"ca@valencia", "ca"}, Row{"de_DE@1996", "de_DE"},
                                         Row{"de_DE@", "de_DE"}, Row{"de_DE@a b", "de_DE"},
                                         Row{"de_DE@x@y", "de_DE"},
                                         Row{"de_DE@collation=phonebook", "de_DE"}));

INSTANTIATE_TEST_SUITE_P(
    NoLocale, LocaleIdentifier,
    testing::Values(Row{"C", "en_US_POSIX"}, Row{"POSIX", "en_US_POSIX"},
                    Row{"C.UTF-8", "en_US_POSIX"}, Row{"C.utf8@latin", "en_US_POSIX"},
                    Row{"en_US_POSIX", "en_US_POSIX"}, Row{"", "en_US_POSIX"},
                    Row{".UTF-8", "en_US_POSIX"}, Row{"@latin", "en_US_POSIX"},
                    Row{"_DE", "en_US_POSIX"}, Row{"/usr/share/locale/de_DE", "en_US_POSIX"},
                    Row{"../de_DE", "en_US_POSIX"}, Row{"de DE", "en_US_POSIX"},
                    Row{"de_D", "en_US_POSIX"}, Row{"de__DE", "en_US_POSIX"},
                    Row{"de_DE_AT", "en_US_POSIX"}, Row{"d\xC3\xA4_DE", "en_US_POSIX"}));

INSTANTIATE_TEST_SUITE_P(Spelling, LocaleIdentifier,
                         testing::Values(Row{"DE_de", "de_DE"}, Row{"de-DE", "de_DE"},
                                         Row{"sr-latn-rs", "sr-Latn_RS"},
                                         Row{"ca_ES_valencia", "ca_ES"}));

// The shortest and the longest of each part, and what is just beyond.
INSTANTIATE_TEST_SUITE_P(
    Lengths, LocaleIdentifier,
    testing::Values(Row{"abcdefgh_DE", "abcdefgh_DE"}, Row{"abcdefghi_DE", "en_US_POSIX"},
                    Row{"d_DE", "en_US_POSIX"}, Row{"sl_rozaj", "sl"},
                    Row{"sr_Lat_RS", "en_US_POSIX"}, Row{"sl_SI_abcdefgh", "sl_SI"},
                    Row{"sl_SI_abcdefghi", "en_US_POSIX"}, Row{"sl_SI_abcd", "en_US_POSIX"},
                    Row{"sl_SI_1ab", "en_US_POSIX"}, Row{"sl_SI_1abc", "sl_SI"},
                    Row{"es_4191", "es"}, Row{"es_41", "en_US_POSIX"}));

INSTANTIATE_TEST_SUITE_P(Characters, LocaleIdentifier,
                         testing::Values(Row{"AZ_az", "az_AZ"}, Row{"az_AZ", "az_AZ"},
                                         Row{"en_001", "en_001"}, Row{"en_900", "en_900"},
                                         Row{"en_0:1", "en_US_POSIX"}, Row{"e{_DE", "en_US_POSIX"},
                                         Row{"e[_DE", "en_US_POSIX"}, Row{"e`_DE", "en_US_POSIX"},
                                         Row{"en_0/1", "en_US_POSIX"}));

INSTANTIATE_TEST_SUITE_P(Order, LocaleIdentifier,
                         testing::Values(Row{"de_DE_Latn", "en_US_POSIX"},
                                         Row{"de_1996_DE", "en_US_POSIX"},
                                         Row{"sr_Latn_Cyrl", "en_US_POSIX"},
                                         Row{"sl_SI_rozaj_1994", "sl_SI"}));

class LocaleEnvironment : public testing::Test {
 protected:
  std::string identifier() const {
    return ov::localeIdentifier([this](const char* name) {
      const auto at = variables_.find(name);
      return at == variables_.end() ? nullptr : at->second.c_str();
    });
  }

  std::map<std::string, std::string> variables_ = {
      {"LC_ALL", "de_DE"}, {"LC_MESSAGES", "fr_FR"}, {"LANG", "it_IT"}};
};

TEST_F(LocaleEnvironment, LcAllComesFirst) { EXPECT_EQ(identifier(), "de_DE"); }

TEST_F(LocaleEnvironment, ThenLcMessages) {
  variables_.erase("LC_ALL");
  EXPECT_EQ(identifier(), "fr_FR");
}

TEST_F(LocaleEnvironment, ThenLang) {
  variables_.erase("LC_ALL");
  variables_.erase("LC_MESSAGES");
  EXPECT_EQ(identifier(), "it_IT");
}

TEST_F(LocaleEnvironment, AnEmptyVariableCountsAsAbsent) {
  variables_["LC_ALL"] = "";
  EXPECT_EQ(identifier(), "fr_FR");
  variables_["LC_MESSAGES"] = "";
  EXPECT_EQ(identifier(), "it_IT");
  variables_["LANG"] = "";
  EXPECT_EQ(identifier(), "en_US_POSIX");
}

TEST_F(LocaleEnvironment, NothingSetIsPosix) {
  variables_.clear();
  EXPECT_EQ(identifier(), "en_US_POSIX");
}

TEST_F(LocaleEnvironment, TheFirstThatIsNotEmptyDecidesAlsoWhenItNamesNoLocale) {
  variables_["LC_ALL"] = "C";
  EXPECT_EQ(identifier(), "en_US_POSIX");
  variables_["LC_ALL"] = "?";
  EXPECT_EQ(identifier(), "en_US_POSIX");
}

}  // namespace
