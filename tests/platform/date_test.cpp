#include <OVAddressBookSDK/date.h>

#include <cmath>
#include <limits>
#include <ostream>

#include <gtest/gtest.h>

static void PrintTo(const OVDate::Day& day, std::ostream* stream) {
  *stream << day.year << '-' << day.month << '-' << day.day;
}

namespace {

using Day = OVDate::Day;
using Limits = std::numeric_limits<double>;

constexpr Day kNone{0, 0, 0};
constexpr double kSecondsPerDay = 86400;

Day dayAt(double seconds) { return OVDate::dateWithTimeIntervalSinceReferenceDate(seconds)->day(); }

double secondsAt(int year, unsigned month, unsigned day) {
  return OVDate::dateWithYearMonthDay(year, month, day)->timeIntervalSinceReferenceDate();
}

TEST(Date, CountsFromTheFirstDayOf2001) {
  EXPECT_EQ(secondsAt(2001, 1, 1), 0);
  EXPECT_EQ(secondsAt(2001, 1, 2), kSecondsPerDay);
  EXPECT_EQ(secondsAt(2000, 12, 31), -kSecondsPerDay);
  EXPECT_EQ(secondsAt(1970, 1, 1), -978307200);
  EXPECT_EQ(secondsAt(2038, 1, 19), 2147472000.0 - 978307200);
}

TEST(Date, ADayLastsUntilMidnight) {
  EXPECT_EQ(dayAt(0), (Day{2001, 1, 1}));
  EXPECT_EQ(dayAt(kSecondsPerDay - 0.001), (Day{2001, 1, 1}));
  EXPECT_EQ(dayAt(kSecondsPerDay), (Day{2001, 1, 2}));
  EXPECT_EQ(dayAt(-0.001), (Day{2000, 12, 31}));
  EXPECT_EQ(dayAt(-0.0), (Day{2001, 1, 1}));
  EXPECT_EQ(dayAt(-kSecondsPerDay), (Day{2000, 12, 31}));
}

TEST(Date, KnowsLeapYears) {
  EXPECT_EQ(dayAt(secondsAt(2000, 2, 29)), (Day{2000, 2, 29}));
  EXPECT_EQ(dayAt(secondsAt(2004, 2, 29)), (Day{2004, 2, 29}));
  EXPECT_EQ(OVDate::dateWithYearMonthDay(1900, 2, 29), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2100, 2, 29), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001, 2, 29), nullptr);
  EXPECT_EQ(dayAt(secondsAt(2000, 2, 28) + kSecondsPerDay), (Day{2000, 2, 29}));
  EXPECT_EQ(dayAt(secondsAt(1900, 2, 28) + kSecondsPerDay), (Day{1900, 3, 1}));
}

TEST(Date, IsNullForADayThatIsNot) {
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001, 0, 1), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001, 13, 1), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001, 1, 0), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001, 4, 31), nullptr);
  // Numbers that would wrap around to a day that is.
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001, 257, 1), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001, 1, 257), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(2001 + 65536, 1, 1), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(32768, 1, 1), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(-32768, 1, 1), nullptr);
  EXPECT_EQ(OVDate::dateWithYearMonthDay(std::numeric_limits<int>::min(), 1, 1), nullptr);
}

TEST(Date, EveryDayOfFourCenturiesGoesThereAndBack) {
  Day expected{1800, 1, 1};
  double seconds = secondsAt(1800, 1, 1);
  for (; expected.year < 2200; seconds += kSecondsPerDay) {
    ASSERT_EQ(dayAt(seconds), expected);
    ASSERT_EQ(secondsAt(expected.year, expected.month, expected.day), seconds);
    ++expected.day;
    if (OVDate::dateWithYearMonthDay(expected.year, expected.month, expected.day)) continue;
    expected = expected.month == 12 ? Day{expected.year + 1, 1, 1}
                                    : Day{expected.year, expected.month + 1, 1};
  }
}

TEST(Date, ReachesToTheEndsOfItsYears) {
  EXPECT_EQ(dayAt(secondsAt(1, 1, 1)), (Day{1, 1, 1}));
  EXPECT_EQ(dayAt(secondsAt(0, 3, 1)), (Day{0, 3, 1}));
  EXPECT_EQ(dayAt(secondsAt(-1, 12, 31)), (Day{-1, 12, 31}));
  const double first = secondsAt(-32767, 1, 1);
  const double last = secondsAt(32767, 12, 31);
  EXPECT_EQ(dayAt(first), (Day{-32767, 1, 1}));
  EXPECT_EQ(dayAt(first - 1), kNone);
  EXPECT_EQ(dayAt(last), (Day{32767, 12, 31}));
  EXPECT_EQ(dayAt(last + kSecondsPerDay), kNone);
}

TEST(Date, HasNoDayWhereThereIsNone) {
  EXPECT_EQ(dayAt(Limits::quiet_NaN()), kNone);
  EXPECT_EQ(dayAt(Limits::infinity()), kNone);
  EXPECT_EQ(dayAt(-Limits::infinity()), kNone);
  EXPECT_EQ(dayAt(Limits::max()), kNone);
  EXPECT_EQ(dayAt(Limits::lowest()), kNone);
  EXPECT_EQ(dayAt(Limits::denorm_min()), (Day{2001, 1, 1}));
}

TEST(Date, KeepsTheNumberUnchanged) {
  for (const double seconds : {0.0, 0.1, -1e300, Limits::infinity(), -Limits::infinity()}) {
    EXPECT_EQ(
        OVDate::dateWithTimeIntervalSinceReferenceDate(seconds)->timeIntervalSinceReferenceDate(),
        seconds);
  }
  EXPECT_TRUE(std::isnan(OVDate::dateWithTimeIntervalSinceReferenceDate(Limits::quiet_NaN())
                             ->timeIntervalSinceReferenceDate()));
}

}  // namespace
