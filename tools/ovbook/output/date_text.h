#pragma once

#include <string>

#include <OVAddressBookSDK/date.h>

namespace ovbook {

/// A date as ISO 8601 has it, in UTC: the day alone at midnight, else with the time of day. A date
/// without a day in the calendar is given by its number: "nan seconds since 2001-01-01".
[[nodiscard]] std::string isoText(const OVDate& date);

/// The same, but a day of the year 1604, which means a day of no known year, without its year.
[[nodiscard]] std::string dateText(const OVDate& date);

}  // namespace ovbook
