#include "output/escape.h"

#include <gtest/gtest.h>

using ovbook::printable;
using ovbook::quoted;
using ovbook::tsvField;

TEST(Escape, OrdinaryTextStaysAsItIs) {
  for (const char* text :
       {"", "plain", "Größe", "花子", "👩‍👩‍👧", "\u200Eleft", "\u00A0"}) {
    EXPECT_EQ(printable(text), text);
    EXPECT_EQ(tsvField(text), text);
  }
}

TEST(Escape, ControlCharactersAreNumbered) {
  using namespace std::string_view_literals;
  EXPECT_EQ(printable("\0\x01\x1b\x7f\u0080\u009f"sv),
            "\\u0000\\u0001\\u001b\\u007f\\u0080\\u009f");
}

TEST(Escape, EveryControlCharacterIsEscaped) {
  for (char32_t c = 0; c < 0xA0; ++c) {
    if (c == 0x20) c = 0x7F;
    const std::string text =
        c < 0x80 ? std::string(1, static_cast<char>(c)) : std::string{'\xC2', static_cast<char>(c)};
    EXPECT_EQ(printable(text).front(), '\\') << static_cast<unsigned>(c);
  }
}

TEST(Escape, CommonControlCharactersHaveNames) {
  EXPECT_EQ(printable("a\tb\nc\rd"), "a\\tb\\nc\\rd");
}

TEST(Escape, LineSeparatorsAndTurnsOfDirectionAreNumbered) {
  EXPECT_EQ(printable("\u2028\u2029\u202A\u202E\u2066\u2069"),
            "\\u2028\\u2029\\u202a\\u202e\\u2066\\u2069");
  EXPECT_EQ(printable("\u2027\u202F\u2065\u206A"), "\u2027\u202F\u2065\u206A");
}

TEST(Escape, IllFormedTextIsRepaired) {
  EXPECT_EQ(printable("a\xFF"), "a\uFFFD");
  EXPECT_EQ(printable("\xC0\x8A"), "\uFFFD\uFFFD");
  EXPECT_EQ(printable("\uFFFD"), "\uFFFD");
}

TEST(Escape, BackslashesAreDoubledForProgramsOnly) {
  EXPECT_EQ(printable("\\n"), "\\n");
  EXPECT_EQ(tsvField("\\n"), "\\\\n");
}

TEST(Escape, QuotedTextsAreJsonStrings) {
  EXPECT_EQ(quoted(""), "\"\"");
  EXPECT_EQ(quoted("a\"b\\c\n\u0085"), "\"a\\\"b\\\\c\\n\\u0085\"");
}
