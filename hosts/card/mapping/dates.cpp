// Dates of cards, in the forms of all three versions. What is neither a date nor one without a year
// is kept as an entry of "Other".

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

#include "codec/ascii.h"
#include "properties.h"
#include "reading.h"

namespace ov::card {

namespace {

constexpr double kSecondsPerDay = 86400;

/// Takes exactly `count` digits from the front of the text.
std::optional<int> takeDigits(std::string_view& text, std::size_t count) {
  int number = 0;
  if (text.size() < count) return std::nullopt;
  for (const char c : text.substr(0, count)) {
    if (!isDigit(c)) return std::nullopt;
    number = number * 10 + (c - '0');
  }
  text.remove_prefix(count);
  return number;
}

void skip(std::string_view& text, char c) {
  if (text.starts_with(c)) text.remove_prefix(1);
}

/// True for "Z", "+02", "-0330" and "-03:30".
bool isZone(std::string_view text) {
  if (text == "Z") return true;
  if (!text.starts_with('+') && !text.starts_with('-')) return false;
  text.remove_prefix(1);
  const auto hours = takeDigits(text, 2);
  skip(text, ':');
  const auto minutes = text.empty() ? std::optional<int>(0) : takeDigits(text, 2);
  return hours && minutes && text.empty() && *hours < 24 && *minutes < 60;
}

/// "10", "1022", "102200", with colons or without, in any time zone or none. Nothing for anything
/// else.
std::optional<int> secondsOfDay(std::string_view text) {
  const std::size_t zone = std::min(text.find_first_of("Z+-"), text.size());
  if (zone < text.size() && !isZone(text.substr(zone))) return std::nullopt;
  text = text.substr(0, zone);
  std::array<int, 3> parts{};
  for (std::size_t i = 0; i < parts.size() && !text.empty(); ++i) {
    if (i > 0) skip(text, ':');
    const auto part = takeDigits(text, 2);
    if (!part) return std::nullopt;
    parts[i] = *part;
  }
  if (zone == 0 || !text.empty() || parts[0] > 23 || parts[1] > 59 || parts[2] > 60)
    return std::nullopt;
  return (parts[0] * 60 + parts[1]) * 60 + parts[2];
}

/// "19811206", "1981-12-06", "--1206", "--12-06".
OVRef<OVDate> parseDay(std::string_view text) {
  std::optional<int> year = kNoYear;
  if (text.starts_with("--")) {
    text.remove_prefix(2);
  } else {
    year = takeDigits(text, 4);
    skip(text, '-');
  }
  const auto month = takeDigits(text, 2);
  skip(text, '-');
  const auto day = takeDigits(text, 2);
  if (!year || !month || !day || !text.empty()) return nullptr;
  return OVDate::dateWithYearMonthDay(*year, static_cast<unsigned>(*month),
                                      static_cast<unsigned>(*day));
}

/// A parameter of some programs says which year means none.
OVRef<OVDate> dateOf(const Line& line) {
  if (line.isBase64()) return nullptr;
  OVRef<OVDate> date = parseDate(trim(line.text()));
  if (date == nullptr) return nullptr;
  for (const Parameter& parameter : line.parameters()) {
    if (!parameter.name.ends_with("-OMIT-YEAR")) continue;
    const OVDate::Day day = date->day();
    if (std::to_string(day.year) != parameter.values.front()) continue;
    date = OVDate::dateWithYearMonthDay(kNoYear, day.month, day.day);
    if (date == nullptr) return nullptr;
  }
  return spelledDate(*date).empty() ? nullptr : date;
}

/// Whether writing the date gives the same moment again, with as much of it.
bool isUsualDate(const Line& line, const OVDate& date) {
  const std::string_view text = trim(line.text());
  const bool hasYear = !text.starts_with("--");
  if (hasYear && line.parameters().empty() && date.day().year == kNoYear) return false;
  const std::string_view time = text.substr(std::min(text.find('T'), text.size()));
  if (time.empty()) return true;
  std::string plain(time);
  std::erase(plain, ':');
  return spelledDate(date).ends_with(plain);
}

template <class... Numbers>
std::string formatted(const char* format, Numbers... numbers) {
  std::array<char, 40> text{};
  const int size = std::snprintf(text.data(), text.size(), format, numbers...);
  return {text.data(), static_cast<std::size_t>(size)};
}

}  // namespace

OVRef<OVDate> parseDate(std::string_view text) {
  const std::size_t t = text.find('T');
  OVRef<OVDate> date = parseDay(text.substr(0, t));
  if (date == nullptr || t == std::string_view::npos) return date;
  const auto seconds = secondsOfDay(text.substr(t + 1));
  if (!seconds || t + 1 == text.size()) return nullptr;
  return OVDate::dateWithTimeIntervalSinceReferenceDate(date->timeIntervalSinceReferenceDate() +
                                                        *seconds);
}

std::string spelledDate(const OVDate& date) {
  const OVDate::Day day = date.day();
  if (day.year < 1 || day.year > 9999) return {};
  const OVRef<OVDate> midnight = OVDate::dateWithYearMonthDay(day.year, day.month, day.day);
  const double rest =
      date.timeIntervalSinceReferenceDate() - midnight->timeIntervalSinceReferenceDate();
  const auto seconds = static_cast<unsigned>(std::clamp(rest, 0.0, kSecondsPerDay - 1));
  std::string text = day.year == kNoYear ? formatted("--%02u%02u", day.month, day.day)
                                         : formatted("%04d%02u%02u", day.year, day.month, day.day);
  if (seconds > 0) {
    text += formatted("T%02u%02u%02u", seconds / 3600, seconds / 60 % 60, seconds % 60);
  }
  return text;
}

Fit readBirthday(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.value().empty()) return Fit::Nothing;
  const OVRef<OVDate> date = dateOf(line);
  if (date == nullptr || !reading.set(*binding.property, date)) return Fit::Other;
  return isUsualDate(line, *date) ? Fit::Usual : Fit::Unusual;
}

bool spellBirthday(const Binding& binding, const PersonValues& values,
                   const OVSingleValue* /*entry*/, Spelling& spelling) {
  const auto date = values.datum<OVDate>(*binding.property);
  if (date != nullptr) spelling.value = spelledDate(*date);
  return !spelling.value.empty();
}

Fit readDate(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.value().empty()) return Fit::Nothing;
  const OVRef<OVDate> date = dateOf(line);
  if (date == nullptr) return Fit::Other;
  const Fit fit = reading.add(line, binding, date);
  return isUsualDate(line, *date) ? fit : Fit::Unusual;
}

bool spellDate(const Binding& /*binding*/, const PersonValues& /*values*/,
               const OVSingleValue* entry, Spelling& spelling) {
  const auto date = ov::cast<OVDate>(entry->value());
  if (date != nullptr) spelling.value = spelledDate(*date);
  return !spelling.value.empty();
}

bool becomeAnniversary(Spelling& spelling) {
  if (spelling.label.types != "anniversary" || spelling.label.hasLine) return false;
  spelling.name = "ANNIVERSARY";
  spelling.label = {};
  return true;
}

}  // namespace ov::card
