#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/text.h>

#include "support/printers.h"

using std::string_view_literals::operator""sv;

namespace {

#define BAD "\xEF\xBF\xBD"

struct Repair {
  const char* name;
  std::string_view given;
  std::string_view kept;

  friend void PrintTo(const Repair& repair, std::ostream* stream) { *stream << repair.name; }
};

class TextRepair : public testing::TestWithParam<Repair> {};

TEST_P(TextRepair, ReplacesWhatIsIllFormed) {
  const auto& [name, given, kept] = GetParam();
  EXPECT_EQ(OVString(given).view(), kept);
  const std::string before = "ASCII in front ";
  EXPECT_EQ(OVString(before + std::string(given) + " behind").view(),
            before + std::string(kept) + " behind");
}

TEST_P(TextRepair, IsDoneOnce) {
  const OVString repaired(GetParam().given);
  EXPECT_EQ(OVString(repaired.view()).view(), repaired.view());
}

INSTANTIATE_TEST_SUITE_P(
    , TextRepair,
    testing::Values(Repair{"LoneContinuation", "\x80"sv, BAD ""sv},
                    Repair{"ManyContinuations", "\x80\xBF\xA0"sv, BAD BAD BAD ""sv},
                    Repair{"OverlongOfTwo", "\xC0\xAF"sv, BAD BAD ""sv},
                    Repair{"OverlongNul", "\xC0\x80"sv, BAD BAD ""sv},
                    Repair{"LargestOverlongOfTwo", "\xC1\xBF"sv, BAD BAD ""sv},
                    Repair{"OverlongOfThree", "\xE0\x80\xAF"sv, BAD BAD BAD ""sv},
                    Repair{"LargestOverlongOfThree", "\xE0\x9F\xBF"sv, BAD BAD BAD ""sv},
                    Repair{"OverlongOfFour", "\xF0\x80\x80\xAF"sv, BAD BAD BAD BAD ""sv},
                    Repair{"LargestOverlongOfFour", "\xF0\x8F\xBF\xBF"sv, BAD BAD BAD BAD ""sv},
                    Repair{"HighSurrogate", "\xED\xA0\x80"sv, BAD BAD BAD ""sv},
                    Repair{"LowSurrogate", "\xED\xBF\xBF"sv, BAD BAD BAD ""sv},
                    Repair{"SurrogatePair", "\xED\xA0\xBD\xED\xB8\x80"sv,
                           BAD BAD BAD BAD BAD BAD ""sv},
                    Repair{"PastTheLastCodePoint", "\xF4\x90\x80\x80"sv, BAD BAD BAD BAD ""sv},
                    Repair{"LeadOfFivePlanes", "\xF5\x80\x80\x80"sv, BAD BAD BAD BAD ""sv},
                    Repair{"FiveBytes", "\xF8\x88\x80\x80\x80"sv, BAD BAD BAD BAD BAD ""sv},
                    Repair{"NoLeadAtAll", "\xFE\xFF"sv, BAD BAD ""sv},
                    Repair{"TwoCutShort", "\xC3"sv, BAD ""sv},
                    Repair{"ThreeCutAfterOne", "\xE2"sv, BAD ""sv},
                    Repair{"ThreeCutAfterTwo", "\xE2\x82"sv, BAD ""sv},
                    Repair{"FourCutAfterTwo", "\xF0\x9F"sv, BAD ""sv},
                    Repair{"FourCutAfterThree", "\xF0\x9F\x98"sv, BAD ""sv},
                    Repair{"CutShortByALetter", "\xE2\x82x"sv, BAD "x"sv},
                    Repair{"CutShortByACharacter", "\xF0\x9F\x98\xC3\xA9"sv, BAD "\xC3\xA9"sv},
                    Repair{"CutShortTwice", "\xF0\x9F\xE2\x82"sv, BAD BAD ""sv},
                    Repair{"AfterGoodText", "gr\xC3\xBC\xC3"sv, "gr\xC3\xBC" BAD ""sv}),
    [](const auto& row) { return row.param.name; });

TEST(TextRepairing, LeavesWellFormedTextAlone) {
  for (const std::string_view text :
       {"\0"sv, "\x7F"sv, "\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv, "\xED\x9F\xBF"sv,
        "\xEE\x80\x80"sv, "\xEF\xBF\xBF"sv, "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv,
        "\xEF\xBB\xBFmark"sv, "\xEF\xBF\xBE"sv}) {
    EXPECT_EQ(OVString(text).view(), text);
  }
}

TEST(TextRepairing, WorksAtEveryPlaceOfAWord) {
  for (std::size_t length = 1; length <= 24; ++length) {
    for (std::size_t bad = 0; bad < length; ++bad) {
      std::string given(length, 'a');
      given[bad] = '\xFF';
      const std::string kept = std::string(bad, 'a') + BAD + std::string(length - bad - 1, 'a');
      EXPECT_EQ(OVString(given).view(), kept) << length << ' ' << bad;
    }
  }
}

TEST(TextRepairing, AppliesToPointersAndStringsAlike) {
  EXPECT_EQ(OVString("a\xFF"), "a" BAD);
  EXPECT_EQ(OVString(std::string("a\xFF")), "a" BAD);
}

}  // namespace
