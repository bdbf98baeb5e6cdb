#include "output/date_text.h"

#include <cmath>
#include <cstdint>

#include "output/number_text.h"

namespace ovbook {

namespace {

constexpr double kSecondsOfDay = 86400;
constexpr int kYearOfNone = 1604;

std::string twoDigits(unsigned number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

std::string yearText(int year) {
  std::string digits = std::to_string(std::abs(year));
  if (digits.size() < 4) digits.insert(0, 4 - digits.size(), '0');
  return (year < 0 ? "-" : "") + digits;
}

std::string monthAndDay(const OVDate::Day& day) {
  return twoDigits(day.month) + "-" + twoDigits(day.day);
}

bool isMidnight(const OVDate& date) {
  return std::fmod(date.timeIntervalSinceReferenceDate(), kSecondsOfDay) == 0;
}

/// "T18:15:00Z"; fractions of a second are cut off. Empty at midnight.
std::string timeOfDay(const OVDate& date) {
  if (isMidnight(date)) return {};
  const double all = date.timeIntervalSinceReferenceDate();
  const double sinceMidnight = all - std::floor(all / kSecondsOfDay) * kSecondsOfDay;
  const auto seconds = static_cast<unsigned>(sinceMidnight);
  return "T" + twoDigits(seconds / 3600) + ":" + twoDigits(seconds / 60 % 60) + ":" +
         twoDigits(seconds % 60) + "Z";
}

}  // namespace

std::string isoText(const OVDate& date) {
  const OVDate::Day day = date.day();
  if (day.month == 0) {
    return numberText(date.timeIntervalSinceReferenceDate()) + " seconds since 2001-01-01";
  }
  return yearText(day.year) + "-" + monthAndDay(day) + timeOfDay(date);
}

std::string dateText(const OVDate& date) {
  const OVDate::Day day = date.day();
  if (day.year != kYearOfNone || !isMidnight(date)) return isoText(date);
  return monthAndDay(day) + " (year unknown)";
}

}  // namespace ovbook
