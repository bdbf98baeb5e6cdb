#include "names.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include <OVAddressBookSDK/person_name.h>

#include "escapes.h"
#include "others.h"

namespace ov::vcard {

namespace {

/// A part that newer cards name on its own, and older readers find inside `whole`.
void append(std::string& whole, const std::string& part) {
  if (part.empty() || whole.find(part) != std::string::npos) return;
  whole.append(whole.empty() ? "" : " ").append(part);
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

bool readName(const Field& field, const Binding& /*binding*/, PersonDraft& draft) {
  if (draft.has(OVProPertyName) || draft.has(OVProPertyTitle) || draft.has(OVProPertySuffix)) {
    return false;
  }
  std::vector<std::string> parts = field.components(" ");
  parts.resize(std::max<std::size_t>(parts.size(), 7));
  append(parts[0], parts[5]);
  append(parts[4], parts[6]);
  const bool isName = std::all_of(parts.begin() + 7, parts.end(),
                                  [](const std::string& part) { return part.empty(); });
  if (!isName) return false;

  if (const auto name = OVObjectPersonName::initWithFirstMiddleLast(parts[1], parts[2], parts[0])) {
    draft.set(OVProPertyName, name);
  }
  if (!parts[3].empty()) draft.set(OVProPertyTitle, OVString(parts[3]));
  if (!parts[4].empty()) draft.set(OVProPertySuffix, OVString(parts[4]));
  return true;
}

bool readFormattedName(const Field& field, const Binding& /*binding*/, PersonDraft& draft) {
  if (field.text.empty()) return true;
  if (draft.formattedName() != nullptr) return false;
  draft.setFormattedName(field);
  return true;
}

void finishName(PersonDraft& draft) {
  if (draft.formattedName() == nullptr) return;
  const Field& field = *draft.formattedName();
  const OVString text = field.text;
  if (!draft.has(OVProPertyName)) {
    draft.set(OVProPertyName, OVObjectPersonName::initWithFirstMiddleLast(text, nullptr, nullptr));
  }
  const auto name = ov::cast<OVObjectPersonName>(draft.datum(OVProPertyName));
  const std::string derived =
      formattedName(ov::cast<OVString>(draft.datum(OVProPertyTitle)), name.get(),
                    ov::cast<OVString>(draft.datum(OVProPertySuffix)));
  if (derived != text.view() || !field.parameters.empty() || field.label != nullptr) {
    keepFormattedName(draft);
  }
}

void writeName(const Binding& binding, const PersonValues& values, CardWriter& card) {
  const auto name = values.datum<OVObjectPersonName>(OVProPertyName);
  const OVString prefix = values.text(OVProPertyTitle);
  const OVString suffix = values.text(OVProPertySuffix);
  if (!hasLine(values, "FN")) {
    card.line("FN", "", escapeText(formattedName(prefix, name.get(), suffix)));
  }
  if (name == nullptr && prefix.empty() && suffix.empty()) return;

  std::string value;
  const auto part = [&](const OVString& text) { value += escapeText(text); };
  part(name == nullptr ? nullptr : name->last());
  value += ';';
  part(name == nullptr ? nullptr : name->first());
  value += ';';
  part(name == nullptr ? nullptr : name->middle());
  value += ';';
  part(prefix);
  value += ';';
  part(suffix);
  card.line(binding.name, "", value);
}

bool readSound(const Field& field, const Binding& /*binding*/, PersonDraft& draft) {
  if (field.types() != std::vector<std::string>{"X-IRMC-N"} || field.binary) return false;
  if (draft.has(OVProPertyFirstNamePhonetic) || draft.has(OVProPertyLastNamePhonetic)) return false;
  std::vector<std::string> parts = field.components(" ");
  parts.resize(std::max<std::size_t>(parts.size(), 2));
  const bool isName = std::all_of(parts.begin() + 2, parts.end(),
                                  [](const std::string& part) { return part.empty(); });
  if (!isName) return false;
  if (!parts[0].empty()) draft.set(OVProPertyLastNamePhonetic, OVString(parts[0]));
  if (!parts[1].empty()) draft.set(OVProPertyFirstNamePhonetic, OVString(parts[1]));
  return true;
}

}  // namespace ov::vcard
