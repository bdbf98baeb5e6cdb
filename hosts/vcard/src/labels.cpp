#include "labels.h"

#include <algorithm>
#include <array>
#include <vector>

#include "ascii.h"
#include "escapes.h"

namespace ov::vcard {

namespace {

/// TYPE values that a label does not call by their own lower-case name.
struct Word {
  std::string_view type;
  std::string_view name;
};
constexpr std::array kWords{
    Word{"CELL", "mobile"},      Word{"BBS", "BBS"},
    Word{"ISDN", "ISDN"},        Word{"MSG", "message"},
    Word{"TEXTPHONE", "TTY"},    Word{"HOMEFAX", "home fax"},
    Word{"WORKFAX", "work fax"}, Word{"OTHERFAX", "other fax"},
};

/// Says where an entry belongs: comes first in a label.
bool isPlace(std::string_view type) {
  return type == "HOME" || type == "WORK" || type == "OTHER" || type == "SCHOOL";
}

/// Says what every entry of the property is unless told otherwise.
bool isUnderstood(std::string_view type, std::string_view vcardName) {
  return (vcardName == "TEL" && type == "VOICE") || (vcardName == "EMAIL" && type == "INTERNET");
}

std::string wordOf(std::string_view type) {
  const auto* const at =
      std::find_if(kWords.begin(), kWords.end(), [&](const Word& w) { return w.type == type; });
  return at == kWords.end() ? lowerASCII(type) : std::string(at->name);
}

std::string typeOf(std::string_view word) {
  const auto* const at =
      std::find_if(kWords.begin(), kWords.end(), [&](const Word& w) { return w.name == word; });
  return at == kWords.end() ? upperASCII(word) : std::string(at->type);
}

/// The name of the label for these types; "" when they say nothing.
std::string nameOf(std::vector<std::string> types, std::string_view vcardName) {
  std::erase_if(types, [&](const std::string& type) { return isUnderstood(type, vcardName); });
  std::stable_partition(types.begin(), types.end(), isPlace);
  std::string name;
  for (const std::string& type : types) {
    if (!name.empty()) name += ' ';
    name += wordOf(type);
  }
  return name;
}

std::string displayNameOf(std::string_view name) {
  std::string display(name);
  if (!display.empty()) display.front() = upperASCII(display.front());
  return display;
}

/// The types that make this name; none when there are no such types.
std::vector<std::string> typesOf(std::string_view name, std::string_view vcardName) {
  std::vector<std::string> types;
  std::size_t start = 0;
  while (start <= name.size()) {
    const std::size_t end = std::min(name.find(' ', start), name.size());
    const std::string_view word = name.substr(start, end - start);
    if (!isToken(word) || typeOf(word) == "PREF") return {};
    types.push_back(typeOf(word));
    start = end + 1;
  }
  if (nameOf(types, vcardName) != name) return {};
  return types;
}

constexpr std::string_view kOpen = "_$!<";
constexpr std::string_view kClose = ">!$_";

bool isWellKnown(std::string_view text) {
  return text.size() > kOpen.size() + kClose.size() && text.starts_with(kOpen) &&
         text.ends_with(kClose);
}

}  // namespace

OVRef<OVLabel> makeLabel(const OVString& name, const OVString& displayName) {
  OVRef<OVLabel> label = OVLabel::init();
  label->setName(name);
  label->setDisplayName(displayName);
  return label;
}

std::string labelText(const Field& labelLine) {
  const std::string_view text = labelLine.text;
  if (!isWellKnown(text)) return labelLine.text;
  return std::string(text.substr(kOpen.size(), text.size() - kOpen.size() - kClose.size()));
}

OVRef<OVLabel> labelOf(const Field& field, const OVProperty& property,
                       std::string_view impliedType) {
  std::vector<std::string> types = field.types();
  if (!impliedType.empty()) types.insert(types.begin(), std::string(impliedType));
  std::string name = nameOf(std::move(types), field.name);

  if (field.label == nullptr || field.label->text.empty()) {
    return name.empty() ? makeLabel(property.displayName(), property.displayName())
                        : makeLabel(name, displayNameOf(name));
  }
  if (const Parameter* const key = field.label->parameter("X-NAME")) {
    return makeLabel(key->values.empty() ? "" : key->values.front(), field.label->text);
  }
  const std::string text = labelText(*field.label);
  if (!name.empty()) return makeLabel(name, text);
  if (!isWellKnown(field.label->text)) return makeLabel(text, text);
  name = wordOf(upperASCII(text));
  return makeLabel(name, displayNameOf(name));
}

LabelSpelling spellingOf(const OVRef<OVLabel>& label, const OVProperty& property,
                         std::string_view vcardName) {
  if (label == nullptr || (label->name().empty() && label->displayName().empty())) return {};
  const OVString name = label->name().empty() ? label->displayName() : label->name();
  const OVString display = label->displayName().empty() ? name : label->displayName();
  if (name == property.displayName() && display == name) return {};

  const std::vector<std::string> types = typesOf(name, vcardName);
  std::string joined;
  for (const std::string& type : types) {
    joined.append(joined.empty() ? "" : ",").append(lowerASCII(type));
  }
  if (!types.empty() && display == displayNameOf(name)) return {joined, {}};
  const bool plain = !isWellKnown(display);
  if (plain && name == display) return {{}, ":" + escapeText(display)};
  if (plain && !types.empty()) return {joined, ":" + escapeText(display)};
  return {{}, spelled({"X-NAME", {name.str()}}) + ":" + escapeText(display)};
}

}  // namespace ov::vcard
