// Labels and the TYPE words of lines. A name is made of the words, place first, some of them
// translated by a table ("CELL" is "mobile", "IPHONE" is "iPhone"); where splitting the name again
// gives the same words, the line needs no label of its own.

#include "labels.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "codec/ascii.h"
#include "codec/line_writer.h"
#include "codec/parameters.h"

namespace ov::card {

namespace {

/// TYPE values that a label does not call by their own lower-case name.
struct Word {
  std::string_view type;
  std::string_view name;
  std::string_view displayName = {};  // where it is not the name with a capital
};
constexpr std::array kWords{
    Word{"CELL", "mobile"},
    Word{"BBS", "BBS"},
    Word{"ISDN", "ISDN"},
    Word{"MSG", "message"},
    Word{"TEXTPHONE", "TTY"},
    Word{"HOMEFAX", "home fax"},
    Word{"WORKFAX", "work fax"},
    Word{"OTHERFAX", "other fax"},
    Word{"IPHONE", "iPhone", "iPhone"},
    Word{"HOMEPAGE", "homepage", "Home page"},
};

/// Says where an entry belongs: comes first in a label.
bool isPlace(std::string_view type) {
  return type == "HOME" || type == "WORK" || type == "OTHER" || type == "SCHOOL";
}

/// Says what every entry of the property is by default.
bool isUnderstood(std::string_view type, std::string_view lineName) {
  return (lineName == "TEL" && type == "VOICE") || (lineName == "EMAIL" && type == "INTERNET");
}

/// Says how a letter is to be delivered: no label of an address.
bool isDelivery(std::string_view type, std::string_view lineName) {
  return lineName == "ADR" &&
         (type == "INTL" || type == "POSTAL" || type == "PARCEL" || type == "DOM");
}

/// The name of a program's own type, without the "X-" that marks it so.
std::string ownWord(std::string_view type) {
  const bool isShouted = upperASCII(type) == type;
  return isShouted ? lowerASCII(type) : std::string(type);
}

std::string wordOf(std::string_view type) {
  const std::string upper = upperASCII(type);
  const auto* const at =
      std::find_if(kWords.begin(), kWords.end(), [&](const Word& w) { return w.type == upper; });
  if (at != kWords.end()) return std::string(at->name);
  const bool isOwn = upper.starts_with("X-") && upper.size() > 2;
  return isOwn ? ownWord(type.substr(2)) : lowerASCII(type);
}

std::string typeOf(std::string_view word) {
  const auto* const at =
      std::find_if(kWords.begin(), kWords.end(), [&](const Word& w) { return w.name == word; });
  return at == kWords.end() ? upperASCII(word) : std::string(at->type);
}

std::string_view knownDisplayName(std::string_view name) {
  const auto* const at =
      std::find_if(kWords.begin(), kWords.end(), [&](const Word& w) { return w.name == name; });
  return at == kWords.end() ? std::string_view() : at->displayName;
}

std::string displayNameOf(std::string_view name) {
  std::string display(knownDisplayName(name));
  if (!display.empty()) return display;
  display = name;
  if (!display.empty()) display.front() = upperASCII(display.front());
  return display;
}

/// The name of the label for these types; "" when they say nothing.
std::string nameOf(std::vector<std::string_view> types, std::string_view lineName) {
  std::erase_if(types, [&](std::string_view type) {
    const std::string upper = upperASCII(type);
    return isUnderstood(upper, lineName) || isDelivery(upper, lineName);
  });
  std::stable_partition(types.begin(), types.end(),
                        [](std::string_view type) { return isPlace(upperASCII(type)); });
  std::string name;
  std::set<std::string> seen;
  for (const std::string_view type : types) {
    if (!seen.insert(upperASCII(type)).second) continue;
    name.append(name.empty() ? "" : " ").append(wordOf(type));
  }
  return name;
}

/// The types that make this name; none when there are no such types.
std::vector<std::string> typesOf(std::string_view name, std::string_view lineName) {
  std::vector<std::string> types;
  std::size_t start = 0;
  while (start <= name.size()) {
    const std::size_t end = std::min(name.find(' ', start), name.size());
    const std::string_view word = name.substr(start, end - start);
    if (!isToken(word) || typeOf(word) == "PREF") return {};
    types.push_back(typeOf(word));
    start = end + 1;
  }
  if (nameOf({types.begin(), types.end()}, lineName) != name) return {};
  return types;
}

/// The words of TYPE as written, without PREF.
std::vector<std::string_view> wordsOf(const Parameter* types) {
  std::vector<std::string_view> words;
  if (types == nullptr) return words;
  for (std::string_view value : types->values) {
    while (!value.empty()) {
      const std::size_t comma = std::min(value.find(','), value.size());
      const std::string_view word = trim(value.substr(0, comma));
      if (!word.empty() && !sameWord(word, "PREF")) words.push_back(word);
      value.remove_prefix(std::min(comma + 1, value.size()));
    }
  }
  return words;
}

/// Whether writing the name gives these very types.
bool isUsual(const std::vector<std::string_view>& words, std::string_view name,
             std::string_view lineName, std::string_view impliedType) {
  std::set<std::string> given;
  for (const std::string_view word : words) {
    std::string upper = upperASCII(word);
    if (!isUnderstood(upper, lineName)) given.insert(std::move(upper));
  }
  if (!impliedType.empty()) given.insert(std::string(impliedType));
  if (name.empty()) return given.empty();
  const std::vector<std::string> written = typesOf(name, lineName);
  return given == std::set<std::string>(written.begin(), written.end());
}

constexpr std::string_view kOpen = "_$!<";
constexpr std::string_view kClose = ">!$_";

bool isWellKnown(std::string_view text) {
  return text.size() > kOpen.size() + kClose.size() && text.starts_with(kOpen) &&
         text.ends_with(kClose);
}

/// "Younger sister" for "YoungerSister".
std::string inWords(std::string_view text) {
  const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
  std::string words;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool begins = i > 0 && isUpper(text[i]) && !isUpper(text[i - 1]);
    const bool isLetterOfOne = begins && i + 1 < text.size() && !isUpper(text[i + 1]);
    if (begins) words += ' ';
    words += isLetterOfOne ? lowerASCII(text[i]) : text[i];
  }
  return words;
}

}  // namespace

OVRef<OVLabel> makeLabel(const OVString& name, const OVString& displayName) {
  OVRef<OVLabel> label = OVLabel::init();
  label->setName(name);
  label->setDisplayName(displayName);
  return label;
}

OwnLabel ownLabelOf(const Line& labelLine) {
  const std::string_view text = labelLine.text();
  if (const Parameter* const name = labelLine.parameter("X-NAME")) {
    return {OVString(name->values.front()), OVString(text), true};
  }
  if (!isWellKnown(text)) return {OVString(text), OVString(text), false};
  const std::string_view word =
      text.substr(kOpen.size(), text.size() - kOpen.size() - kClose.size());
  const std::string name = wordOf(word);
  const bool isTranslated = name != lowerASCII(word) || !knownDisplayName(name).empty();
  return {OVString(name),
          OVString(isTranslated ? displayNameOf(name) : inWords(displayNameOf(word))), false};
}

LabelTexts LabelReader::read(const Line& line, const OVProperty& property,
                             std::string_view impliedType, const OwnLabel* own) {
  if (own != nullptr && own->isWhole) return {own->name, own->displayName};
  const Parameter* const types = line.parameter("TYPE");
  LabelTexts texts{property.displayName(), property.displayName()};
  bool saysNothing = types == nullptr && impliedType.empty();
  if (!saysNothing) {
    std::string key(line.name());
    key.append(";").append(impliedType);
    if (types != nullptr) {
      for (const std::string_view value : types->values) key.append(",").append(value);
    }
    const auto at = known_.find(key);
    if (at != known_.end()) {
      texts = at->second;
    } else {
      std::vector<std::string_view> words = wordsOf(types);
      const std::vector<std::string_view> given = words;
      if (!impliedType.empty()) words.insert(words.begin(), impliedType);
      const std::string name = nameOf(std::move(words), line.name());
      if (!name.empty()) texts = {OVString(name), OVString(displayNameOf(name))};
      texts.isUsual = isUsual(given, name, line.name(), impliedType);
      constexpr std::size_t kMaxKnown = 256;
      constexpr std::size_t kLongestKnown = 64;
      if (known_.size() < kMaxKnown && key.size() < kLongestKnown) known_.emplace(key, texts);
    }
    saysNothing = texts.name.isSame(property.displayName());
  }
  if (own == nullptr) {
    const OVString custom(line.parameterValue("X-CUSTOM"));
    return custom.empty() ? texts : LabelTexts{custom, custom, false};
  }
  return {saysNothing ? own->name : texts.name, own->displayName, texts.isUsual};
}

OVString LabelReader::shared(std::string_view text) {
  constexpr std::size_t kMaxTexts = 4096;
  constexpr std::size_t kLongest = 64;
  if (const auto at = texts_.find(text); at != texts_.end()) return at->second;
  OVString made(text);
  if (texts_.size() < kMaxTexts && text.size() <= kLongest) texts_.emplace(made.view(), made);
  return made;
}

LabelSpelling spellingOf(const OVRef<OVLabel>& label, const OVProperty& property,
                         std::string_view lineName) {
  if (label == nullptr) return {};
  const OVString given = label->name();
  const OVString shown = label->displayName();
  if (given.empty() && shown.empty()) return {};
  const OVString& name = given.empty() ? shown : given;
  const OVString& display = shown.empty() ? name : shown;
  if (name == property.displayName() && display == name) return {};

  std::string joined;
  for (const std::string& type : typesOf(name, lineName)) {
    joined.append(joined.empty() ? "" : ",").append(lowerASCII(type));
  }
  if (!joined.empty() && display == displayNameOf(name)) return {joined, false, {}, {}};
  const bool plain = !isWellKnown(display);
  if (plain && name == display) return {{}, true, {}, display};
  if (plain && !joined.empty()) return {joined, true, {}, display};
  LabelSpelling spelling{{}, true, {}, display};
  appendParameter(spelling.lineParameters, "X-NAME", {name.view()});
  return spelling;
}

}  // namespace ov::card
