#include <OVAddressBookSDK/date.h>

#include <chrono>
#include <cmath>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/class_table.h"
#include "platform/maker.h"

using ov::detail::Maker;

namespace {

constexpr std::string_view kTime = "NS.time";

using Days = std::chrono::sys_days;
constexpr Days kReferenceDay = std::chrono::year(2001) / 1 / 1;
constexpr double kSecondsPerDay = 86400;

}  // namespace

namespace ov::detail {
constexpr OVClass kDateClass{"NSDate", nullptr, &Maker::empty<OVDate>};
}

OVRef<OVDate> OVDate::dateWithTimeIntervalSinceReferenceDate(double seconds) {
  auto date = Maker::make<OVDate>();
  date->seconds_ = seconds;
  return date;
}

OVRef<OVDate> OVDate::dateWithYearMonthDay(int year, unsigned month, unsigned day) {
  const std::chrono::year_month_day wanted{std::chrono::year(year), std::chrono::month(month),
                                           std::chrono::day(day)};
  if (year < -32767 || year > 32767 || month > 12 || day > 31 || !wanted.ok()) return nullptr;
  const auto days = (Days(wanted) - kReferenceDay).count();
  return dateWithTimeIntervalSinceReferenceDate(static_cast<double>(days) * kSecondsPerDay);
}

OVDate::Day OVDate::day() const {
  static constexpr Days kFirst = std::chrono::year(-32767) / 1 / 1;
  static constexpr Days kLast = std::chrono::year(32767) / 12 / 31;
  const double days = std::floor(seconds_ / kSecondsPerDay);
  // Written so that not-a-number is outside as well.
  const bool isInside = days >= static_cast<double>((kFirst - kReferenceDay).count()) &&
                        days <= static_cast<double>((kLast - kReferenceDay).count());
  if (!isInside) return {0, 0, 0};
  const std::chrono::year_month_day day(kReferenceDay + std::chrono::days(static_cast<int>(days)));
  return {static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
          static_cast<unsigned>(day.day())};
}

const OVClass* OVDate::classForCoder() const { return &ov::detail::kDateClass; }

void OVDate::encodeWithCoder(OVKeyedArchiver& coder) const {
  coder.encodeDoubleForKey(seconds_, kTime);
}

void OVDate::initWithCoder(OVKeyedUnarchiver& coder) { seconds_ = coder.decodeDoubleForKey(kTime); }
