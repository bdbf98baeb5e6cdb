// The properties with one text: how the line of each is read, and how it is spelled.

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "properties.h"
#include "reading.h"

namespace ov::card {

Fit readText(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  if (line.text().empty()) return Fit::Nothing;
  return reading.set(*binding.property, OVString(line.text())) ? Fit::Usual : Fit::Other;
}

bool spellText(const Binding& binding, const PersonValues& values, const OVSingleValue* /*entry*/,
               Spelling& spelling) {
  spelling.value = escapeText(values.text(*binding.property));
  return !spelling.value.empty();
}

Fit readListText(const Line& line, const Binding& binding, PersonReading& reading) {
  const Fit fit = readText(line, binding, reading);
  const bool hasCommaInName = line.value().find("\\,") != std::string_view::npos;
  return fit == Fit::Usual && hasCommaInName ? Fit::Unusual : fit;
}

bool spellListText(const Binding& binding, const PersonValues& values,
                   const OVSingleValue* /*entry*/, Spelling& spelling) {
  spelling.value = quoteSeparators(escapeURI(values.text(*binding.property)), ";");
  return !spelling.value.empty();
}

Fit readOrganization(const Line& line, const Binding& /*binding*/, PersonReading& reading) {
  if (line.isBase64() || reading.has(OVProPertyCompany) || reading.has(OVProPertyDepartment)) {
    return Fit::Other;
  }
  std::string company;
  std::string units;
  bool isFirst = true;
  bool isUsual = true;
  for (const std::string_view part : splitValue(line.value(), ';')) {
    if (isFirst) {
      company = unescape(part);
    } else {
      const std::string unit = unescape(part);
      isUsual &= unit.find(';') == std::string::npos;
      units.append(unit).append(";");
    }
    isFirst = false;
  }
  while (units.ends_with(';')) units.pop_back();
  if (company.empty() && units.empty()) return Fit::Nothing;
  if (!company.empty()) reading.set(OVProPertyCompany, reading.shared(company));
  if (!units.empty()) reading.set(OVProPertyDepartment, reading.shared(units));
  return isUsual ? Fit::Usual : Fit::Unusual;
}

bool spellOrganization(const Binding& /*binding*/, const PersonValues& values,
                       const OVSingleValue* /*entry*/, Spelling& spelling) {
  const OVString company = values.text(OVProPertyCompany);
  const OVString units = values.text(OVProPertyDepartment);
  if (company.empty() && units.empty()) return false;
  spelling.value = escapeText(company);
  // Each unit is a part of its own: the semicolons between them stay bare.
  std::string_view rest = units;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    spelling.value.append(";").append(escapeText(rest.substr(0, end)));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return true;
}

Fit readKind(const Line& line, const Binding& binding, PersonReading& reading) {
  const std::string_view kind = trim(line.text());
  const bool isKind = line.name() == "KIND";
  if (line.isBase64()) return Fit::Other;
  if (kind.empty()) return Fit::Nothing;
  if (sameWord(kind, "individual")) return isKind ? Fit::Usual : Fit::Unusual;
  if (!sameWord(kind, "org") && !sameWord(kind, "organization") && !sameWord(kind, "company")) {
    return Fit::Other;
  }
  reading.set(*binding.property, OVString("true"));
  return isKind || !reading.hasLine("KIND") ? Fit::Usual : Fit::Unusual;
}

bool spellKind(const Binding& binding, const PersonValues& values, const OVSingleValue* /*entry*/,
               Spelling& spelling) {
  spelling.value = "org";
  return meansOrganization(values.text(*binding.property));
}

bool meansOrganization(const OVString& text) {
  return !text.empty() && text != "0" && !sameWord(text, "no") && !sameWord(text, "false");
}

Fit readTags(const Line& line, const Binding& /*binding*/, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  bool saysNothing = true;
  for (const std::string_view list : splitValue(line.value(), ';')) {
    for (const std::string_view tag : splitValue(list, ',')) {
      if (trim(tag).empty()) continue;
      saysNothing = false;
      reading.addTag(unescape(trim(tag)));
    }
  }
  return saysNothing ? Fit::Nothing : Fit::Usual;
}

bool spellTags(const Binding& binding, const PersonValues& values, const OVSingleValue* /*entry*/,
               Spelling& spelling) {
  const auto tags = values.datum<OVList<OVString>>(*binding.property);
  if (tags == nullptr) return false;
  for (const OVString tag : tags) {
    if (tag.empty()) continue;
    spelling.value.append(spelling.value.empty() ? "" : ",").append(escapeText(tag));
  }
  return !spelling.value.empty();
}

}  // namespace ov::card
