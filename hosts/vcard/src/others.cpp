#include "others.h"

#include <algorithm>

#include "ascii.h"
#include "card_parser.h"
#include "entries.h"
#include "escapes.h"
#include "labels.h"
#include "line_header.h"
#include "photos.h"

namespace ov::vcard {

namespace {

/// True for a name as `keptLine` writes it, in upper case.
bool isPropertyName(std::string_view name) {
  return isToken(name) && upperASCII(name) == name && name != "VERSION";
}

OVRef<OVLabel> labelOf(const KeptLine& line, const Field& field) {
  return makeLabel(line.name + line.parameters,
                   field.label == nullptr ? field.name : labelText(*field.label));
}

}  // namespace

KeptLine keptLine(const Field& field) {
  KeptLine line{field.name, {}, field.value};
  for (const Parameter& parameter : field.parameters) line.parameters += spelled(parameter);
  if (field.binary) line.value = dataURI(field.text);
  return line;
}

void keepLine(const Field& field, PersonDraft& draft) {
  const KeptLine line = keptLine(field);
  draft.addOther(line.value, labelOf(line, field), field.preference());
}

void keepFormattedName(PersonDraft& draft) {
  const Field& field = *draft.formattedName();
  const KeptLine line = keptLine(field);
  draft.addOtherForFormattedName(line.value, labelOf(line, field), field.preference());
}

void keepParameters(const Field& field, const Binding& binding, PersonDraft& draft) {
  const std::string prefix = (field.name.starts_with("X-") ? "" : "X-") + field.name + "-";
  for (const Parameter& parameter : field.parameters) {
    if (binding.understands(parameter.name)) continue;
    std::string value;
    for (const std::string& part : parameter.values) value.append(value.empty() ? "" : ",") += part;
    const std::string name = prefix + parameter.name;
    draft.addOther(canonicalValue(value, Escaping::New), makeLabel(name, name), kNotPreferred);
  }
}

std::optional<KeptLine> lineOf(const OVSingleValue& entry) {
  const OVRef<OVLabel> label = entry.label();
  const OVString value = ov::cast<OVString>(entry.value());
  if (label == nullptr || canonicalValue(value, Escaping::New) != value.view()) return std::nullopt;

  const std::string_view name = label->name();
  LineHeader header;
  if (!isPropertyName(name.substr(0, name.find(';'))) || !parseHeader(name, header)) {
    return std::nullopt;
  }
  const auto field = parseLine({0, {}, header.name, header.parameters, false, value.str()});
  if (!field) return std::nullopt;
  KeptLine line = keptLine(*field);
  if (line.name + line.parameters != name || line.value != value.view()) return std::nullopt;
  return line;
}

bool hasLine(const PersonValues& values, std::string_view name) {
  const std::vector<OVRef<OVSingleValue>> entries = values.entries(OVProPertyOther);
  return std::any_of(entries.begin(), entries.end(), [&](const OVRef<OVSingleValue>& entry) {
    const OVRef<OVLabel> label = entry->label();
    if (label == nullptr || !label->name().view().starts_with(name)) return false;
    const auto line = lineOf(*entry);
    return line && line->name == name;
  });
}

bool readOther(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.binary) return false;
  draft.addOther(field.text, labelOf(field, binding.descriptor()), field.preference());
  return true;
}

void writeOthers(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    if (const auto line = lineOf(*entry)) {
      const OVString display = entry->label()->displayName();
      LabelSpelling label;
      if (!display.empty() && display != line->name) label.line = ":" + escapeText(display);
      card.labelledLine(line->name, line->parameters, label, line->value);
    } else if (const OVString text = ov::cast<OVString>(entry->value()); !text.isNull()) {
      writer.write(entry, {}, escapeText(text));
    }
  }
}

}  // namespace ov::vcard
