#include "output/display_width.h"

#include <gtest/gtest.h>

using ovbook::displayWidth;
using ovbook::padded;

TEST(DisplayWidth, OrdinaryCharactersTakeOneColumn) {
  EXPECT_EQ(displayWidth(""), 0U);
  EXPECT_EQ(displayWidth("abc"), 3U);
  EXPECT_EQ(displayWidth("Größe"), 5U);
  EXPECT_EQ(displayWidth("Анна"), 4U);
  EXPECT_EQ(displayWidth("\u00AD"), 1U);
}

TEST(DisplayWidth, WideCharactersTakeTwo) {
  EXPECT_EQ(displayWidth("花子"), 4U);
  EXPECT_EQ(displayWidth("서연"), 4U);
  EXPECT_EQ(displayWidth("ＡＢ"), 4U);
  EXPECT_EQ(displayWidth("ｱ"), 1U);
  EXPECT_EQ(displayWidth("😀"), 2U);
}

TEST(DisplayWidth, MarksTakeNone) {
  EXPECT_EQ(displayWidth("e\u0301"), 1U);
  EXPECT_EQ(displayWidth("มาลี"), 3U);
  EXPECT_EQ(displayWidth("\u200B\u200D\u200E\uFE0F"), 0U);
  EXPECT_EQ(displayWidth("\u1112\u1161\u11AB"), 2U);
}

TEST(DisplayWidth, PaddedTextsFillTheColumns) {
  EXPECT_EQ(padded("花", 4), "花  ");
  EXPECT_EQ(padded("abc", 3), "abc");
  EXPECT_EQ(padded("abc", 2), "abc");
}
