// The properties with several labelled values: how the line of each is read, and how it is spelled.

#include <array>

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/phone.h>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "properties.h"
#include "reading.h"

namespace ov::card {

namespace {

std::string_view withoutScheme(std::string_view text, std::string_view scheme) {
  return startsWithWord(text, scheme) ? text.substr(scheme.size()) : text;
}

/// Puts the scheme in front of text that would lose what looks like one.
void spellWithScheme(std::string_view text, std::string_view scheme, Spelling& spelling) {
  if (startsWithWord(text, scheme)) {
    spelling.parameters = ";VALUE=uri";
    spelling.value = scheme;
  }
  spelling.value += escapeText(text);
}

/// True for text that begins with a scheme and holds no blank.
bool isURI(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon < 2) return false;
  return isToken(text.substr(0, colon)) && text.find_first_of(" \t\n") == std::string_view::npos;
}

}  // namespace

Fit readPhone(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  const std::string_view number = withoutScheme(line.text(), "tel:");
  if (number.empty()) return Fit::Nothing;
  return reading.add(line, binding, OVObjectPhone::initWithPhoneNumber(number));
}

bool spellPhone(const Binding& /*binding*/, const PersonValues& /*values*/,
                const OVSingleValue* entry, Spelling& spelling) {
  const auto phone = ov::cast<OVObjectPhone>(entry->value());
  if (phone != nullptr) spellWithScheme(phone->phoneNumber(), "tel:", spelling);
  return phone != nullptr;
}

Fit readEmail(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  const std::string_view address = withoutScheme(line.text(), "mailto:");
  if (address.empty()) return Fit::Nothing;
  return reading.add(line, binding, OVObjectEmail::initWithEmail(address));
}

bool spellEmail(const Binding& /*binding*/, const PersonValues& /*values*/,
                const OVSingleValue* entry, Spelling& spelling) {
  const auto email = ov::cast<OVObjectEmail>(entry->value());
  if (email != nullptr) spellWithScheme(email->email(), "mailto:", spelling);
  return email != nullptr;
}

Fit readTextEntry(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  if (line.text().empty()) return Fit::Nothing;
  return reading.add(line, binding, OVString(line.text()));
}

bool spellURL(const Binding& /*binding*/, const PersonValues& /*values*/,
              const OVSingleValue* entry, Spelling& spelling) {
  const OVString url = ov::cast<OVString>(entry->value());
  spelling.value = escapeURI(url);
  return !url.isNull();
}

bool spellRelatedName(const Binding& /*binding*/, const PersonValues& /*values*/,
                      const OVSingleValue* entry, Spelling& spelling) {
  const OVString name = ov::cast<OVString>(entry->value());
  if (isURI(name)) {
    spelling.value = escapeURI(name);
  } else {
    spelling.parameters = ";VALUE=text";
    spelling.value = escapeText(name);
  }
  return !name.isNull();
}

namespace {

constexpr std::string_view kTable = "vnd.android.cursor.item/";

/// What the number in a row about a related person means, from 1.
constexpr std::array<std::string_view, 14> kRelations{
    "assistant", "brother", "child",   "domestic partner", "father",   "friend", "manager",
    "mother",    "parent",  "partner", "referred by",      "relative", "sister", "spouse"};

OVRef<OVLabel> labelWithCapital(std::string_view name) {
  std::string display(name);
  if (!display.empty()) display.front() = upperASCII(display.front());
  return makeLabel(name, display);
}

const Binding& bindingNamed(std::string_view name) {
  for (const Binding& binding : bindings()) {
    if (binding.name == name) return binding;
  }
  return otherBinding();
}

/// A row: what it holds, the number of its kind, the label of the user's own kind.
struct Row {
  explicit Row(std::string_view value) {
    std::size_t i = 0;
    for (const std::string_view part : splitValue(value, ';')) {
      if (i < parts.size()) parts[i++] = unescape(part);
    }
  }
  /// The number of the kind, 0 for the user's own.
  [[nodiscard]] std::size_t kind() const {
    std::size_t number = 0;
    for (const char c : parts[2]) {
      if (!isDigit(c) || number > 99) return 0;
      number = number * 10 + static_cast<std::size_t>(c - '0');
    }
    return number;
  }
  std::array<std::string, 4> parts;
};

Fit addRow(const Binding& binding, const OVRef<OVObject>& datum, const OVRef<OVLabel>& label,
           PersonReading& reading) {
  reading.claimFor(binding);
  reading.add(binding, datum, label, kNotPreferred);
  return Fit::Unusual;
}

}  // namespace

Fit readTableRow(const Line& line, const Binding& /*binding*/, PersonReading& reading) {
  if (line.isBase64() || !line.value().starts_with(kTable)) return Fit::Other;
  const Row row(line.value().substr(kTable.size()));
  const std::string& text = row.parts[1];
  if (text.empty()) return Fit::Other;
  if (row.parts[0] == "nickname") {
    reading.claimFor(bindingNamed("NICKNAME"));
    return reading.set(OVProPertyNickname, OVString(text)) ? Fit::Unusual : Fit::Other;
  }
  if (row.parts[0] == "relation") {
    const std::size_t kind = row.kind();
    const bool isOwn = kind == 0 || kind > kRelations.size();
    if (isOwn && row.parts[3].empty()) return Fit::Other;
    return addRow(
        bindingNamed("RELATED"), OVString(text),
        isOwn ? makeLabel(row.parts[3], row.parts[3]) : labelWithCapital(kRelations[kind - 1]),
        reading);
  }
  if (row.parts[0] == "contact_event") {
    const OVRef<OVDate> date = parseDate(text);
    if (date == nullptr || spelledDate(*date).empty()) return Fit::Other;
    constexpr std::size_t kAnniversary = 1;
    constexpr std::size_t kBirthday = 3;
    if (row.kind() == kBirthday) {
      reading.claimFor(bindingNamed("BDAY"));
      return reading.set(OVProPertyBirthday, date) ? Fit::Unusual : Fit::Other;
    }
    const std::string& own = row.parts[3];
    return addRow(bindingNamed("X-ABDATE"), date,
                  row.kind() == kAnniversary ? labelWithCapital("anniversary")
                  : own.empty()              ? labelWithCapital("other")
                                             : makeLabel(own, own),
                  reading);
  }
  return Fit::Other;
}

}  // namespace ov::card
