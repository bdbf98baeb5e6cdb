#include "dates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

#include "ascii.h"
#include "entries.h"

namespace ov::vcard {

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

/// "10", "1022", "102200", with colons or without, in UTC or no zone. Nothing for anything else.
std::optional<int> secondsOfDay(std::string_view text) {
  std::array<int, 3> parts{};
  for (std::size_t i = 0; i < parts.size() && !text.empty() && text != "Z"; ++i) {
    if (i > 0) skip(text, ':');
    const auto part = takeDigits(text, 2);
    if (!part) return std::nullopt;
    parts[i] = *part;
  }
  skip(text, 'Z');
  if (!text.empty() || parts[0] > 23 || parts[1] > 59 || parts[2] > 60) return std::nullopt;
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

/// A parameter of some programs says which year stands for none.
OVRef<OVDate> dateOf(const Field& field) {
  if (field.binary) return nullptr;
  OVRef<OVDate> date = parseDate(trim(field.text));
  if (date == nullptr) return nullptr;
  for (const Parameter& parameter : field.parameters) {
    if (!parameter.name.ends_with("-OMIT-YEAR") || parameter.values.empty()) continue;
    const OVDate::Day day = date->day();
    if (std::to_string(day.year) != parameter.values.front()) continue;
    date = OVDate::dateWithYearMonthDay(kNoYear, day.month, day.day);
    if (date == nullptr) return nullptr;
  }
  return date;
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

bool readBirthday(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.text.empty()) return true;
  const OVRef<OVDate> date = dateOf(field);
  return date != nullptr && draft.set(*binding.property, date);
}

void writeBirthday(const Binding& binding, const PersonValues& values, CardWriter& card) {
  const auto date = values.datum<OVDate>(*binding.property);
  const std::string text = date == nullptr ? "" : spelledDate(*date);
  if (!text.empty()) card.line(binding.name, "", text);
}

bool readDate(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.text.empty()) return true;
  const OVRef<OVDate> date = dateOf(field);
  return date != nullptr && addEntry(field, binding, date, draft);
}

void writeDates(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  bool anniversaryTaken = false;  // a card has no more than one
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    const auto date = ov::cast<OVDate>(entry->value());
    const std::string text = date == nullptr ? "" : spelledDate(*date);
    if (text.empty()) continue;
    const LabelSpelling label = writer.label(entry);
    if (!anniversaryTaken && label.types == "anniversary" && label.line.empty()) {
      anniversaryTaken = true;
      writer.writeAs("ANNIVERSARY", {}, entry, {}, text);
    } else {
      writer.writeAs(binding.name, label, entry, {}, text);
    }
  }
}

}  // namespace ov::vcard
