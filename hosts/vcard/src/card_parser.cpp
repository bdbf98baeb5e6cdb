#include "card_parser.h"

#include <libebook-contacts/libebook-contacts.h>

#include <charconv>
#include <memory>
#include <string>

#include "ascii.h"
#include "escapes.h"

namespace ov::vcard {

namespace {

struct Unreference {
  void operator()(EVCard* card) const { g_object_unref(card); }
};
using CardObject = std::unique_ptr<EVCard, Unreference>;

template <class T, class Use>
void forEach(GList* list, Use use) {
  for (GList* node = list; node != nullptr; node = node->next) use(static_cast<T*>(node->data));
}

/// Every line gets a group that numbers it, so that an attribute leads back to its line. Separators
/// in the value are quoted: taking lists apart is left to those who know where they stand.
CardObject parse(const std::vector<ContentLine>& lines) {
  std::string text = "BEGIN:VCARD\r\nVERSION:3.0\r\n";
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const ContentLine& line = lines[i];
    text.append("l").append(std::to_string(i)).append(".").append(line.name);
    text.append(line.parameters).append(line.base64 ? ";ENCODING=b:" : ":");
    text += line.base64 ? line.value : quoteSeparators(line.value, ";,");
    text += "\r\n";
  }
  text += "END:VCARD\r\n";
  return CardObject(e_vcard_new_from_string(text.c_str()));
}

std::string circumflexDecoded(std::string_view value) {
  std::string decoded;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char next = value[i] == '^' && i + 1 < value.size() ? value[i + 1] : '\0';
    const bool known = next == 'n' || next == '\'' || next == '^';
    decoded += !known ? value[i] : next == 'n' ? '\n' : next == '\'' ? '"' : '^';
    if (known) ++i;
  }
  return decoded;
}

void takeParameters(EVCardAttribute* attribute, Field& field) {
  forEach<EVCardAttributeParam>(
      e_vcard_attribute_get_params(attribute), [&](EVCardAttributeParam* param) {
        Parameter parameter{upperASCII(e_vcard_attribute_param_get_name(param)), {}};
        if (parameter.name == "ENCODING") return;
        forEach<const char>(e_vcard_attribute_param_get_values(param), [&](const char* value) {
          parameter.values.push_back(circumflexDecoded(value));
        });
        // The parser hands out parameters from the last to the first.
        field.parameters.insert(field.parameters.begin(), std::move(parameter));
      });
}

void takeValue(EVCardAttribute* attribute, Field& field) {
  forEach<const GString>(e_vcard_attribute_get_values_decoded(attribute),
                         [&](const GString* value) { field.text.append(value->str, value->len); });
}

/// `seen` tells which lines became fields.
std::vector<Field> fieldsOf(const std::vector<ContentLine>& lines, std::vector<bool>& seen) {
  std::vector<Field> fields;
  seen.assign(lines.size(), false);
  const CardObject card = parse(lines);
  forEach<EVCardAttribute>(e_vcard_get_attributes(card.get()), [&](EVCardAttribute* attribute) {
    const char* const group = e_vcard_attribute_get_group(attribute);
    if (group == nullptr) return;
    const std::string_view digits = std::string_view(group).substr(1);
    std::size_t index = lines.size();
    std::from_chars(digits.data(), digits.data() + digits.size(), index);
    if (index >= lines.size() || seen[index]) return;
    seen[index] = true;

    const ContentLine& line = lines[index];
    Field& field = fields.emplace_back();
    field.number = line.number;
    field.group = line.group;
    field.name = line.name;
    field.value = line.value;
    field.binary = line.base64;
    takeParameters(attribute, field);
    takeValue(attribute, field);
  });
  return fields;
}

}  // namespace

std::optional<Field> parseLine(const ContentLine& line) {
  std::vector<bool> seen;
  std::vector<Field> fields = fieldsOf({line}, seen);
  return fields.empty() ? std::nullopt : std::optional(std::move(fields.front()));
}

std::vector<Field> parseCard(const std::vector<ContentLine>& lines, ProblemList& problems) {
  std::vector<bool> seen;
  std::vector<Field> fields = fieldsOf(lines, seen);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!seen[i]) problems.error(lines[i].number, "this line is no property of a vCard");
  }
  joinCompanions(fields);
  return fields;
}

}  // namespace ov::vcard
