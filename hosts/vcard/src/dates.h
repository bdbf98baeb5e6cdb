#pragma once

#include <string>
#include <string_view>

#include <OVAddressBookSDK/date.h>

#include "bindings.h"

namespace ov::vcard {

/// The year that stands for none: a leap year, so that every day of every year has its place.
inline constexpr int kNoYear = 1604;

/// A day, with or without its year, or a moment in UTC or in no time zone. Null for anything else.
[[nodiscard]] OVRef<OVDate> parseDate(std::string_view text);

/// The date as a vCard 4.0 spells it; "" for what it cannot spell.
[[nodiscard]] std::string spelledDate(const OVDate& date);

/// BDAY: the birthday.
bool readBirthday(const Field& field, const Binding& binding, PersonDraft& draft);
void writeBirthday(const Binding& binding, const PersonValues& values, CardWriter& card);

/// Dates with a label; anniversaries are written as ANNIVERSARY.
bool readDate(const Field& field, const Binding& binding, PersonDraft& draft);
void writeDates(const Binding& binding, const PersonValues& values, CardWriter& card);

}  // namespace ov::vcard
