#include "platform/utf8.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace {

using ov::detail::appendUtf8;
using ov::detail::firstCodePoint;
using ov::detail::isAscii;
using ov::detail::repaired;
using ov::detail::wellFormedPrefix;

std::string utf8Of(char32_t codePoint) {
  std::string text;
  appendUtf8(text, codePoint);
  return text;
}

TEST(Utf8, AppendsEveryLength) {
  EXPECT_EQ(utf8Of(U'\0'), std::string(1, '\0'));
  EXPECT_EQ(utf8Of(0x7F), "\x7F");
  EXPECT_EQ(utf8Of(0x80), "\xC2\x80");
  EXPECT_EQ(utf8Of(0x7FF), "\xDF\xBF");
  EXPECT_EQ(utf8Of(0x800), "\xE0\xA0\x80");
  EXPECT_EQ(utf8Of(0xFFFF), "\xEF\xBF\xBF");
  EXPECT_EQ(utf8Of(0x10000), "\xF0\x90\x80\x80");
  EXPECT_EQ(utf8Of(0x10FFFF), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8, WritesWhatIsNoCharacterAsTheReplacement) {
  for (const char32_t codePoint : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
    EXPECT_EQ(utf8Of(codePoint), "\xEF\xBF\xBD");
  }
  EXPECT_EQ(utf8Of(0xD7FF), "\xED\x9F\xBF");
  EXPECT_EQ(utf8Of(0xE000), "\xEE\x80\x80");
}

TEST(Utf8, AppendsBehindWhatIsThere) {
  std::string text = "a";
  appendUtf8(text, U'é');
  appendUtf8(text, U'😀');
  EXPECT_EQ(text, "aé😀");
}

TEST(Utf8, EveryCharacterGoesThereAndBack) {
  for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    if (codePoint == 0xD800) codePoint = 0xE000;
    const std::string text = utf8Of(codePoint);
    const auto [value, length] = firstCodePoint(text);
    ASSERT_TRUE(value == codePoint && length == text.size() && wellFormedPrefix(text) == length)
        << static_cast<std::uint32_t>(codePoint);
  }
}

TEST(Utf8, FirstCodePointLeavesTheRestAlone) {
  const auto [value, length] = firstCodePoint("éa");
  EXPECT_EQ(value, U'é');
  EXPECT_EQ(length, 2U);
}

TEST(Utf8, KnowsAsciiAtEveryLengthAndPlace) {
  EXPECT_TRUE(isAscii(""));
  for (std::size_t length = 1; length <= 24; ++length) {
    EXPECT_TRUE(isAscii(std::string(length, '\x7F'))) << length;
    for (std::size_t place = 0; place < length; ++place) {
      std::string text(length, 'a');
      text[place] = '\x80';
      EXPECT_FALSE(isAscii(text)) << length << ' ' << place;
    }
  }
}

TEST(Utf8, FindsTheWellFormedPrefix) {
  EXPECT_EQ(wellFormedPrefix(""), 0U);
  EXPECT_EQ(wellFormedPrefix("abc"), 3U);
  EXPECT_EQ(wellFormedPrefix("aé\xFFz"), 3U);
  EXPECT_EQ(wellFormedPrefix("\xE2\x82"), 0U);
  EXPECT_EQ(wellFormedPrefix("0123456789é€😀\xC0"), 19U);
}

TEST(Utf8, RepairsNothingInAnEmptyText) { EXPECT_EQ(repaired(""), ""); }

// Bytes after a view's end are not its own.
TEST(Utf8, NeverLooksPastTheEnd) {
  const std::string_view euro = "\xE2\x82\xAC";
  EXPECT_EQ(wellFormedPrefix(euro.substr(0, 2)), 0U);
  EXPECT_EQ(repaired(euro.substr(0, 2)), "\xEF\xBF\xBD");
  EXPECT_EQ(repaired(euro.substr(0, 1)), "\xEF\xBF\xBD");
}

}  // namespace
