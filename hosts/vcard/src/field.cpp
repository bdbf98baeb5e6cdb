#include "field.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "ascii.h"
#include "escapes.h"
#include "line_header.h"

namespace ov::vcard {

namespace {

std::vector<std::string> splitTypes(const Parameter& types) {
  std::vector<std::string> words;
  for (const std::string& value : types.values) {
    for (const std::string_view word : splitValue(value, ',')) {
      if (!trim(word).empty()) words.push_back(upperASCII(trim(word)));
    }
  }
  return words;
}

/// Parameter values cannot hold quotes and line breaks themselves.
std::string circumflexEncoded(std::string_view value) {
  std::string encoded;
  for (const char c : value) {
    switch (c) {
      case '^':
        encoded += "^^";
        break;
      case '"':
        encoded += "^'";
        break;
      case '\n':
        encoded += "^n";
        break;
      case '\r':
        break;
      default:
        encoded += c;
    }
  }
  return encoded;
}

bool isCompanionName(std::string_view name) { return name == "X-ABLABEL" || name == "X-ABADR"; }

}  // namespace

const Parameter* Field::parameter(std::string_view parameterName) const {
  const auto at = std::find_if(parameters.begin(), parameters.end(),
                               [&](const Parameter& p) { return p.name == parameterName; });
  return at == parameters.end() ? nullptr : &*at;
}

std::string_view Field::parameterValue(std::string_view parameterName) const {
  const Parameter* const found = parameter(parameterName);
  return found == nullptr || found->values.empty() ? std::string_view() : found->values.front();
}

std::vector<std::string> Field::types() const {
  std::vector<std::string> types;
  if (const Parameter* const found = parameter("TYPE")) types = splitTypes(*found);
  std::erase(types, "PREF");
  return types;
}

int Field::preference() const {
  const std::string_view digits = trim(parameterValue("PREF"));
  int rank = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), rank);
  if (error == std::errc() && end == digits.data() + digits.size() && rank >= 1) {
    return std::min(rank, kNotPreferred - 1);
  }
  const Parameter* const types = parameter("TYPE");
  if (types == nullptr) return kNotPreferred;
  const std::vector<std::string> words = splitTypes(*types);
  return std::find(words.begin(), words.end(), "PREF") == words.end() ? kNotPreferred : 1;
}

std::vector<std::string> Field::components(std::string_view listJoint) const {
  std::vector<std::string> components;
  for (const std::string_view part : splitValue(value, ';')) {
    std::string component;
    for (const std::string_view member : splitValue(part, ',')) {
      if (!component.empty() && !member.empty()) component += listJoint;
      component += unescape(member);
    }
    components.push_back(std::move(component));
  }
  return components;
}

bool Field::isNamed(std::string_view base, bool vendorForms) const {
  if (name == base) return true;
  return vendorForms && name.size() > base.size() + 1 && name.starts_with("X-") &&
         name.ends_with(base) && name[name.size() - base.size() - 1] == '-';
}

std::string spelled(const Parameter& parameter) {
  std::string text = ";" + parameter.name + "=";
  for (std::size_t i = 0; i < parameter.values.size(); ++i) {
    text.append(i > 0 ? "," : "").append(parameterSpelling(circumflexEncoded(parameter.values[i])));
  }
  return text;
}

void joinCompanions(std::vector<Field>& fields) {
  struct Companions {
    Field* label = nullptr;
    Field* country = nullptr;
  };
  std::unordered_map<std::string, Companions> byGroup;
  for (Field& field : fields) {
    if (field.group.empty() || !isCompanionName(field.name)) continue;
    Companions& companions = byGroup[lowerASCII(field.group)];
    Field*& place = field.name == "X-ABLABEL" ? companions.label : companions.country;
    if (place == nullptr) place = &field;
  }
  if (byGroup.empty()) return;

  for (Field& field : fields) {
    if (field.group.empty() || isCompanionName(field.name)) continue;
    const auto at = byGroup.find(lowerASCII(field.group));
    if (at == byGroup.end()) continue;
    field.label = at->second.label;
    if (field.label != nullptr) at->second.label->isCompanion = true;
    if (field.name != "ADR" || at->second.country == nullptr) continue;
    field.country = at->second.country;
    at->second.country->isCompanion = true;
  }
}

}  // namespace ov::vcard
