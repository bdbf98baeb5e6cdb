#include "platform/utf16.h"

#include <algorithm>
#include <ranges>
#include <string>

#include <gtest/gtest.h>

namespace {

using ov::detail::Utf16Units;

std::u16string unitsOf(std::string_view text) {
  std::u16string units;
  for (const char16_t unit : Utf16Units(text)) units.push_back(unit);
  return units;
}

TEST(Utf16Units, WalksEveryLengthOfCharacter) {
  EXPECT_EQ(unitsOf(""), u"");
  EXPECT_EQ(unitsOf("a"), u"a");
  EXPECT_EQ(unitsOf("aé€😀z"), u"aé€😀z");
  EXPECT_EQ(unitsOf(std::string_view("\0a", 2)), std::u16string(u"\0a", 2));
}

TEST(Utf16Units, SplitsCharactersPastTheFirstPlane) {
  EXPECT_EQ(unitsOf("\U00010000"), u"\xD800\xDC00");
  EXPECT_EQ(unitsOf("\U0010FFFF"), u"\xDBFF\xDFFF");
  EXPECT_EQ(unitsOf("\uFFFF"), u"\xFFFF");
  EXPECT_EQ(unitsOf("😀😀"), u"\xD83D\xDE00\xD83D\xDE00");
}

TEST(Utf16Units, EndsAfterThePairNotInside) {
  const Utf16Units units("😀");
  auto at = units.begin();
  EXPECT_NE(at, units.end());
  EXPECT_EQ(*at++, 0xD83D);
  EXPECT_NE(at, units.end());
  EXPECT_EQ(*at++, 0xDE00);
  EXPECT_EQ(at, units.end());
}

TEST(Utf16Units, ServesAlgorithms) {
  const Utf16Units units("aé😀a");
  EXPECT_EQ(std::ranges::distance(units.begin(), units.end()), 5);
  EXPECT_EQ(std::count(units.begin(), units.end(), u'a'), 2);
}

}  // namespace
