#pragma once

#include <string>
#include <string_view>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/person_name.h>

#include "bindings.h"

/// How each property is read and spelled: the two columns of the table of bindings.
namespace ov::card {

/// N: the name, prefix and suffix.
Fit readName(const Line& line, const Binding& binding, PersonReading& reading);
bool spellName(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
               Spelling& spelling);
/// FN: the name of a person without N; else another spelling of it, to be read after N.
Fit readFormattedName(const Line& line, const Binding& binding, PersonReading& reading);
bool spellFormattedName(const Binding& binding, const PersonValues& values,
                        const OVSingleValue* entry, Spelling& spelling);
/// SOUND with the reading of a Japanese name: the phonetic names.
Fit readSound(const Line& line, const Binding& binding, PersonReading& reading);

/// One text.
Fit readText(const Line& line, const Binding& binding, PersonReading& reading);
bool spellText(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
               Spelling& spelling);
/// A text whose commas separate the members of a list.
Fit readListText(const Line& line, const Binding& binding, PersonReading& reading);
bool spellListText(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                   Spelling& spelling);
/// ORG: the company, and the units of the department with semicolons between them.
Fit readOrganization(const Line& line, const Binding& binding, PersonReading& reading);
bool spellOrganization(const Binding& binding, const PersonValues& values,
                       const OVSingleValue* entry, Spelling& spelling);
/// KIND and the older ways to say that a card is that of an organisation.
Fit readKind(const Line& line, const Binding& binding, PersonReading& reading);
bool spellKind(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
               Spelling& spelling);
/// Whether the text under "Is Organization" says so: every text but "", "0", "no" and "false".
[[nodiscard]] bool meansOrganization(const OVString& text);
/// CATEGORIES: the tags.
Fit readTags(const Line& line, const Binding& binding, PersonReading& reading);
bool spellTags(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
               Spelling& spelling);

/// PHOTO: the thumbnail. A photo that is elsewhere (a URL) is not read.
Fit readPhoto(const Line& line, const Binding& binding, PersonReading& reading);
bool spellPhoto(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                Spelling& spelling);
inline constexpr std::string_view kUnknownMediaType = "application/octet-stream";
/// The beginning of what an odd line has in place of the photo.
inline constexpr std::string_view kDigestOfPhoto = "sha256:";
/// The media type of the beginning of an image, or the unknown one.
[[nodiscard]] std::string_view mediaTypeOf(std::string_view bytes);

/// The year that means none: a leap year, so that every day of every year has its place.
inline constexpr int kNoYear = 1604;
/// A day, with or without its year, or a moment, whose time zone is left aside. Null for anything
/// else.
[[nodiscard]] OVRef<OVDate> parseDate(std::string_view text);
/// The date as a card spells it; "" for what it cannot spell.
[[nodiscard]] std::string spelledDate(const OVDate& date);
/// BDAY: the birthday.
Fit readBirthday(const Line& line, const Binding& binding, PersonReading& reading);
bool spellBirthday(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                   Spelling& spelling);
/// Dates with a label.
Fit readDate(const Line& line, const Binding& binding, PersonReading& reading);
bool spellDate(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
               Spelling& spelling);
/// Turns the spelling of an anniversary, of which a card has one, into the line made for it. False
/// for other dates.
bool becomeAnniversary(Spelling& spelling);

/// TEL: phone numbers.
Fit readPhone(const Line& line, const Binding& binding, PersonReading& reading);
bool spellPhone(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                Spelling& spelling);
/// EMAIL: e-mail addresses.
Fit readEmail(const Line& line, const Binding& binding, PersonReading& reading);
bool spellEmail(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                Spelling& spelling);
/// URL.
Fit readTextEntry(const Line& line, const Binding& binding, PersonReading& reading);
bool spellURL(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
              Spelling& spelling);
/// RELATED: related names.
bool spellRelatedName(const Binding& binding, const PersonValues& values,
                      const OVSingleValue* entry, Spelling& spelling);
/// X-ANDROID-CUSTOM: a nickname, a date or a related name.
Fit readTableRow(const Line& line, const Binding& binding, PersonReading& reading);

/// IMPP: instant-message accounts.
Fit readAccount(const Line& line, const Binding& binding, PersonReading& reading);
bool spellAccount(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                  Spelling& spelling);
/// The older way: a property for each service, with the user's name as it is.
Fit readServiceAccount(const Line& line, const Binding& binding, PersonReading& reading);
/// Whether the name is that of such a property.
[[nodiscard]] bool isServiceProperty(std::string_view name);

/// ADR: postal addresses.
Fit readAddress(const Line& line, const Binding& binding, PersonReading& reading);
bool spellAddress(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                  Spelling& spelling);

/// X-OTHER: entries of "Other" that were not lines.
Fit readOther(const Line& line, const Binding& binding, PersonReading& reading);
bool spellOther(const Binding& binding, const PersonValues& values, const OVSingleValue* entry,
                Spelling& spelling);

}  // namespace ov::card
