#include "texts.h"

#include "ascii.h"
#include "escapes.h"

namespace ov::vcard {

bool readText(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.binary) return false;
  return field.text.empty() || draft.set(*binding.property, OVString(field.text));
}

void writeText(const Binding& binding, const PersonValues& values, CardWriter& card) {
  const OVString text = values.text(*binding.property);
  if (!text.empty()) card.line(binding.name, "", escapeText(text));
}

void writeListText(const Binding& binding, const PersonValues& values, CardWriter& card) {
  const OVString text = values.text(*binding.property);
  if (!text.empty()) card.line(binding.name, "", quoteSeparators(escapeURI(text), ";"));
}

bool readOrganization(const Field& field, const Binding& /*binding*/, PersonDraft& draft) {
  if (draft.has(OVProPertyCompany) || draft.has(OVProPertyDepartment)) return false;
  const std::vector<std::string> parts = field.components(",");
  std::string units;
  for (std::size_t i = 1; i < parts.size(); ++i) units.append(i > 1 ? ";" : "").append(parts[i]);
  while (units.ends_with(';')) units.pop_back();
  if (!parts[0].empty()) draft.set(OVProPertyCompany, OVString(parts[0]));
  if (!units.empty()) draft.set(OVProPertyDepartment, OVString(units));
  return true;
}

void writeOrganization(const Binding& binding, const PersonValues& values, CardWriter& card) {
  const OVString company = values.text(OVProPertyCompany);
  const OVString units = values.text(OVProPertyDepartment);
  if (company.empty() && units.empty()) return;
  std::string value = escapeText(company);
  if (!units.empty()) {
    // Each unit is a part of its own: the semicolons between them stay bare.
    std::string_view rest = units;
    for (std::size_t end = 0; end != std::string_view::npos; rest.remove_prefix(end + 1)) {
      end = rest.find(';');
      value.append(";").append(escapeText(rest.substr(0, end)));
      if (end == std::string_view::npos) break;
    }
  }
  card.line(binding.name, "", value);
}

bool readKind(const Field& field, const Binding& binding, PersonDraft& draft) {
  const std::string_view kind = trim(field.text);
  if (sameWord(kind, "individual")) return true;
  if (!sameWord(kind, "org") && !sameWord(kind, "organization") && !sameWord(kind, "company")) {
    return false;
  }
  draft.set(*binding.property, OVString("true"));
  return true;
}

void writeKind(const Binding& binding, const PersonValues& values, CardWriter& card) {
  if (meansOrganization(values.text(*binding.property))) card.line(binding.name, "", "org");
}

bool meansOrganization(const OVString& text) {
  return !text.empty() && text != "0" && !sameWord(text, "no") && !sameWord(text, "false");
}

bool readTags(const Field& field, const Binding& /*binding*/, PersonDraft& draft) {
  for (const std::string_view list : splitValue(field.value, ';')) {
    for (const std::string_view tag : splitValue(list, ',')) draft.addTag(unescape(trim(tag)));
  }
  return true;
}

void writeTags(const Binding& binding, const PersonValues& values, CardWriter& card) {
  const auto tags = values.datum<OVList<OVString>>(*binding.property);
  if (tags == nullptr) return;
  std::string value;
  for (const OVString tag : tags) {
    if (!tag.empty()) value.append(value.empty() ? "" : ",").append(escapeText(tag));
  }
  if (!value.empty()) card.line(binding.name, "", value);
}

}  // namespace ov::vcard
