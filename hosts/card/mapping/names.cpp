// N has the parts of a name, FN the name as a whole. FN becomes the name only where there is no N.
// An FN that the parts give is written from them again; any other is an entry of "Other".

#include <algorithm>
#include <array>
#include <initializer_list>

#include "codec/escapes.h"
#include "properties.h"
#include "reading.h"

namespace ov::card {

namespace {

constexpr std::size_t kParts = 7;

/// A part that newer cards name on its own, and older readers find inside `whole`.
void append(std::string& whole, const std::string& part) {
  if (part.empty() || whole == part || whole.ends_with(" " + part) ||
      whole.starts_with(part + " ")) {
    return;
  }
  whole.append(whole.empty() ? "" : " ").append(part);
}

/// The parts between semicolons as texts, several names of one kind with blanks between them.
std::vector<std::string> namePartsOf(std::string_view value) {
  std::vector<std::string> parts;
  for (const std::string_view part : splitValue(value, ';')) {
    std::string text;
    for (const std::string_view member : splitValue(part, ',')) {
      if (!text.empty() && !member.empty()) text += ' ';
      text += unescape(member);
    }
    parts.push_back(std::move(text));
  }
  parts.resize(std::max(parts.size(), kParts));
  return parts;
}

bool areEmpty(const std::vector<std::string>& parts, std::size_t from) {
  return std::all_of(parts.begin() + static_cast<std::ptrdiff_t>(from), parts.end(),
                     [](const std::string& part) { return part.empty(); });
}

std::string joined(std::initializer_list<OVString> parts) {
  std::string text;
  for (const OVString& part : parts) {
    if (!part.empty()) text.append(text.empty() ? "" : " ").append(part.view());
  }
  return text;
}

/// FN as it is written unless the person has one of its own.
std::string formattedName(const OVString& prefix, const OVObjectPersonName* name,
                          const OVString& suffix) {
  if (name == nullptr) return joined({prefix, suffix});
  return joined({prefix, name->first(), name->middle(), name->last(), suffix});
}

}  // namespace

Fit readName(const Line& line, const Binding& /*binding*/, PersonReading& reading) {
  if (line.isBase64() || reading.has(OVProPertyName) || reading.has(OVProPertyTitle) ||
      reading.has(OVProPertySuffix)) {
    return Fit::Other;
  }
  std::vector<std::string> parts = namePartsOf(line.value());
  if (!areEmpty(parts, kParts)) return Fit::Other;
  if (areEmpty(parts, 0)) return Fit::Nothing;
  const bool isList = splitValue(line.value(), ',').size() > 1;
  const bool isUsual = !isList && areEmpty(parts, 5);
  append(parts[0], parts[5]);
  append(parts[4], parts[6]);
  if (const auto name = OVObjectPersonName::initWithFirstMiddleLast(parts[1], parts[2], parts[0])) {
    reading.set(OVProPertyName, name);
  }
  if (!parts[3].empty()) reading.set(OVProPertyTitle, OVString(parts[3]));
  if (!parts[4].empty()) reading.set(OVProPertySuffix, OVString(parts[4]));
  return isUsual ? Fit::Usual : Fit::Unusual;
}

bool spellName(const Binding& /*binding*/, const PersonValues& values,
               const OVSingleValue* /*entry*/, Spelling& spelling) {
  const auto name = values.datum<OVObjectPersonName>(OVProPertyName);
  const OVString prefix = values.text(OVProPertyTitle);
  const OVString suffix = values.text(OVProPertySuffix);
  if (name == nullptr && prefix.empty() && suffix.empty()) return false;
  const auto part = [&](const OVString& text, const char* end) {
    spelling.value.append(escapeText(text)).append(end);
  };
  part(name == nullptr ? nullptr : name->last(), ";");
  part(name == nullptr ? nullptr : name->first(), ";");
  part(name == nullptr ? nullptr : name->middle(), ";");
  part(prefix, ";");
  part(suffix, "");
  return true;
}

Fit readFormattedName(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  const OVString text(line.text());
  if (text.empty()) return Fit::Nothing;
  if (!reading.isFirstFormattedName(line)) return Fit::Other;
  const auto name = ov::cast<OVObjectPersonName>(reading.datum(OVProPertyName));
  const OVString prefix = ov::cast<OVString>(reading.datum(OVProPertyTitle));
  const OVString suffix = ov::cast<OVString>(reading.datum(OVProPertySuffix));
  if (name == nullptr && prefix.isNull() && suffix.isNull()) {
    return reading.set(*binding.property,
                       OVObjectPersonName::initWithFirstMiddleLast(text, nullptr, nullptr))
               ? Fit::Unusual
               : Fit::Other;
  }
  const bool isPlain = line.parameters().empty() && reading.group() == nullptr;
  return isPlain && formattedName(prefix, name.get(), suffix) == text.view() ? Fit::Usual
                                                                             : Fit::Other;
}

bool spellFormattedName(const Binding& /*binding*/, const PersonValues& values,
                        const OVSingleValue* /*entry*/, Spelling& spelling) {
  const auto name = values.datum<OVObjectPersonName>(OVProPertyName);
  spelling.value = escapeText(
      formattedName(values.text(OVProPertyTitle), name.get(), values.text(OVProPertySuffix)));
  return !spelling.value.empty();
}

Fit readSound(const Line& line, const Binding& /*binding*/, PersonReading& reading) {
  if (line.types() != std::vector<std::string>{"X-IRMC-N"} || line.isBase64()) return Fit::Other;
  if (reading.has(OVProPertyFirstNamePhonetic) || reading.has(OVProPertyLastNamePhonetic)) {
    return Fit::Other;
  }
  const std::vector<std::string> parts = namePartsOf(line.value());
  if (!areEmpty(parts, 2)) return Fit::Other;
  if (areEmpty(parts, 0)) return Fit::Nothing;
  if (!parts[0].empty()) reading.set(OVProPertyLastNamePhonetic, OVString(parts[0]));
  if (!parts[1].empty()) reading.set(OVProPertyFirstNamePhonetic, OVString(parts[1]));
  return Fit::Usual;
}

}  // namespace ov::card
