#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "output/bytes_text.h"
#include "output/date_text.h"
#include "output/lines.h"
#include "output/number_text.h"

using testing::ElementsAre;

namespace {

std::string isoOf(double seconds) {
  return ovbook::isoText(*OVDate::dateWithTimeIntervalSinceReferenceDate(seconds));
}

std::string base64Of(std::string_view text) {
  return ovbook::base64(std::as_bytes(std::span(text)));
}

}  // namespace

TEST(IsoText, MidnightIsADay) {
  EXPECT_EQ(isoOf(0), "2001-01-01");
  EXPECT_EQ(isoOf(-86400), "2000-12-31");
  EXPECT_EQ(ovbook::isoText(*OVDate::dateWithYearMonthDay(5, 6, 7)), "0005-06-07");
  EXPECT_EQ(ovbook::isoText(*OVDate::dateWithYearMonthDay(-1, 1, 1)), "-0001-01-01");
}

TEST(IsoText, OtherTimesHaveATimeOfDay) {
  EXPECT_EQ(isoOf(1), "2001-01-01T00:00:01Z");
  EXPECT_EQ(isoOf(-1), "2000-12-31T23:59:59Z");
  EXPECT_EQ(isoOf(86399.999), "2001-01-01T23:59:59Z");
  EXPECT_EQ(isoOf(-0.25), "2000-12-31T23:59:59Z");
}

TEST(IsoText, BeyondTheCalendarIsANumber) {
  EXPECT_EQ(isoOf(1e300), "1e+300 seconds since 2001-01-01");
  EXPECT_EQ(isoOf(std::nan("")), "nan seconds since 2001-01-01");
  EXPECT_EQ(isoOf(-std::numeric_limits<double>::infinity()), "-inf seconds since 2001-01-01");
}

TEST(DateText, TheYear1604MeansNoYear) {
  EXPECT_EQ(ovbook::dateText(*OVDate::dateWithYearMonthDay(1604, 2, 29)), "02-29 (year unknown)");
  EXPECT_EQ(ovbook::dateText(*OVDate::dateWithYearMonthDay(1605, 2, 28)), "1605-02-28");
}

TEST(NumberText, IsTheShortestThatReadsBack) {
  EXPECT_EQ(ovbook::numberText(0.1), "0.1");
  EXPECT_EQ(ovbook::numberText(-0.0), "-0");
  EXPECT_EQ(ovbook::numberText(1e22), "1e+22");
  EXPECT_EQ(ovbook::numberText(std::numeric_limits<double>::denorm_min()), "5e-324");
  EXPECT_EQ(ovbook::numberText(std::numeric_limits<double>::lowest()), "-1.7976931348623157e+308");
  EXPECT_EQ(ovbook::numberText(*OVNumber::numberWithBool(false)), "false");
  EXPECT_EQ(ovbook::numberText(*OVNumber::numberWithUnsigned(~0ULL)), "18446744073709551615");
}

TEST(BytesText, HexadecimalHasTwoDigitsAByte) {
  EXPECT_EQ(ovbook::hexadecimal(std::as_bytes(std::span(std::string_view("\x01\xAF")))), "01af");
}

TEST(BytesText, Base64IsPadded) {
  EXPECT_EQ(base64Of(""), "");
  EXPECT_EQ(base64Of("f"), "Zg==");
  EXPECT_EQ(base64Of("fo"), "Zm8=");
  EXPECT_EQ(base64Of("foo"), "Zm9v");
  EXPECT_EQ(base64Of("foob"), "Zm9vYg==");
  EXPECT_EQ(base64Of("\xFB\xFF\xFE"), "+//+");
}

TEST(Lines, AreSplitAtLineFeeds) {
  EXPECT_THAT(ovbook::linesOf(""), ElementsAre(""));
  EXPECT_THAT(ovbook::linesOf("a\nb\r\n\nc\r"), ElementsAre("a", "b", "", "c\r"));
  EXPECT_THAT(ovbook::linesOf("a\n"), ElementsAre("a", ""));
}
