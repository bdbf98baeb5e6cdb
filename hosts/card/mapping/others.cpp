// Entries of "Other" are lines that became no value. The label has the line's name and parameters,
// the datum its value; whether an entry is such a line is found out by reading it as one.

#include "others.h"

#include <algorithm>

#include "codec/ascii.h"
#include "codec/base64.h"
#include "codec/escapes.h"
#include "codec/line_writer.h"
#include "codec/parameters.h"
#include "properties.h"

namespace ov::card {

namespace {

constexpr std::string_view kOddLines = "vCard";

class NoProblems final : public Problems {
 public:
  void error(std::size_t /*line*/, std::string_view /*reason*/) override {}
  void warning(std::size_t /*line*/, std::string_view /*reason*/) override {}
};

Problems& noProblems() {
  static NoProblems& ignored = *new NoProblems;  // for the life of the process
  return ignored;
}

/// Base64 where a text is expected: only in its own spelling it stays what it is.
bool isStrangeBase64(const Line& line) {
  return line.isBase64() && line.name() != "PHOTO" && bindingOf(line) != nullptr;
}

std::string dataURI(std::string_view digits) {
  constexpr std::size_t kEnoughForAnyType = 64;
  const std::string beginning = decodeBase64(digits.substr(0, kEnoughForAnyType));
  std::string uri = "data:";
  uri += mediaTypeOf(beginning);
  return uri.append(";base64,").append(digits);
}

/// True for a name as `lineNameOf` gives it, as far as that shows before it is taken apart.
bool mayBeLineName(std::string_view label) {
  const std::string_view name = label.substr(0, label.find(';'));
  const auto isAllowed = [](char c) {
    return isAlphanumeric(c) || std::string_view("-_/+").find(c) != std::string_view::npos;
  };
  const bool isName =
      isToken(name) || (name.starts_with("X-") && std::all_of(name.begin(), name.end(), isAllowed));
  return isName && upperASCII(name) == name && name != "VERSION" && name != "BEGIN" &&
         name != "END" && label.find_first_of("\r\n") == std::string_view::npos;
}

/// The line as a text; "" for an entry that cannot be one.
std::string lineText(const OVSingleValue& entry) {
  const OVRef<OVLabel> label = entry.label();
  const OVString value = ov::cast<OVString>(entry.value());
  if (label == nullptr || value.isNull() || !mayBeLineName(label->name()) ||
      canonicalValue(value, Escaping::New) != value.view() ||
      (label->name() == "AGENT" && sameWord(value, "BEGIN:VCARD"))) {
    return {};
  }
  return label->name().str().append(":").append(value.view()).append("\n");
}

constexpr std::string_view kBegin = "BEGIN:VCARD\nVERSION:4.0\n";
constexpr std::string_view kEnd = "END:VCARD\n";
constexpr std::size_t kFirstLine = 3;

}  // namespace

std::string lineNameOf(const Line& line) {
  std::string name(line.name());
  name += canonicalParameters(line);
  return isStrangeBase64(line) ? name + ";ENCODING=b" : name;
}

std::string keptValueOf(const Line& line) {
  return line.isBase64() && !isStrangeBase64(line) ? dataURI(line.value())
                                                   : std::string(line.value());
}

CardText::CardText(std::string text) : text_(std::move(text)) {
  if (text_.empty()) return;
  reader_ = std::make_unique<CardReader>(text_, noProblems());
  card_ = reader_->next();
}

const Lines& CardText::lines() const {
  static const Lines& none = *new Lines;  // for the life of the process
  return card_ == nullptr ? none : card_->lines;
}

OVRef<OVSingleValue> oddLinesEntry(const OVString& text) {
  const auto entry = OVMutableSingleValue::init();
  entry->setType(OVValueTypeString);
  entry->setLabel(makeLabel(kOddLines, kOddLines));
  entry->setValue(text);
  return entry;
}

bool isOddLinesEntry(const OVSingleValue& entry) {
  const OVRef<OVLabel> label = entry.label();
  return label != nullptr && label->name() == kOddLines &&
         ov::cast<OVString>(entry.value()).view().starts_with("BEGIN:VCARD");
}

bool isLineEntry(const OVSingleValue& entry) { return !lineText(entry).empty(); }

Spelling spellingOfOther(const Line& line, const OVSingleValue& entry) {
  const OVRef<OVLabel> label = entry.label();
  const OVString shown = label->displayName();
  Spelling spelling{line.name(), {}, std::string(line.value()), {}, {}, {}};
  spelling.parameters = label->name().view().substr(line.name().size());
  if (!shown.empty() && shown != line.name()) spelling.label = {{}, true, {}, shown};
  return spelling;
}

namespace {

/// Whether an entry of this label and text would be written as another line than X-OTHER. `isTaken`
/// tells whether a property of one value has one.
template <class IsTaken>
bool wouldBeLine(const OVString& label, const OVString& text, IsTaken isTaken) {
  if (label == kOddLines) return true;
  const auto entry = OVMutableSingleValue::init();
  entry->setLabel(makeLabel(label, label));
  entry->setValue(text);
  const std::string line = lineText(*entry);
  if (line.empty()) return false;
  const CardText card(std::string(kBegin) + line + std::string(kEnd));
  if (card.lines().size() != 1 || lineNameOf(card.lines().front()) != label) return false;
  const Line& other = card.lines().front();
  const Binding* const binding = bindingOf(other);
  if (binding == nullptr || other.name() == "FN") return true;
  if (saysGroup(other) || binding == &otherBinding()) return false;
  return PersonReading::fitOf(other, nullptr) == Fit::Other ||
         (!binding->isLabelled() && isTaken(*binding));
}

}  // namespace

OtherLines::OtherLines(const Entries& others, const PersonValues& values, bool hasID)
    : values_(values), hasID_(hasID), lines_(others.size()) {
  std::string text(kBegin);
  std::vector<std::pair<std::size_t, std::string>> candidates;
  for (std::size_t i = 0; i < others.size(); ++i) {
    std::string line = lineText(*others[i]);
    if (line.empty()) continue;
    text += line;
    candidates.emplace_back(i, std::move(line));
  }
  if (candidates.empty()) return;
  cards_.push_back(std::make_unique<CardText>(text.append(kEnd)));
  const Lines& together = cards_.front()->lines();
  auto next = together.begin();
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    const auto& [place, alone] = candidates[i];
    while (next != together.end() && next->number() < kFirstLine + i) ++next;
    const Line* line =
        next != together.end() && next->number() == kFirstLine + i ? &*next : nullptr;
    if (line == nullptr || lineNameOf(*line) != others[place]->label()->name()) {
      // It may have been taken for a part of the line before.
      cards_.push_back(std::make_unique<CardText>(std::string(kBegin) + alone + std::string(kEnd)));
      const Lines& lines = cards_.back()->lines();
      line = lines.size() == 1 ? &lines.front() : nullptr;
    }
    if (line != nullptr && isLineOf(*line, *others[place])) lines_[place] = line;
  }
}

bool OtherLines::isLineOf(const Line& line, const OVSingleValue& entry) const {
  if (lineNameOf(line) != entry.label()->name() ||
      keptValueOf(line) != ov::cast<OVString>(entry.value()).view()) {
    return false;
  }
  if (line.name() == "UID") return hasID_;
  if (line.name() == "FN") {
    return values_.value(OVProPertyName) != nullptr || values_.value(OVProPertyTitle) != nullptr ||
           values_.value(OVProPertySuffix) != nullptr;
  }
  if (bindingOf(line) == &otherBinding()) {
    const auto isTaken = [&](const Binding& each) {
      return values_.value(*each.property) != nullptr;
    };
    return wouldBeLine(entry.label()->displayName(), OVString(line.text()), isTaken);
  }
  return !saysGroup(line) && PersonReading::fitOf(line, &values_) == Fit::Other;
}

Fit readOther(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  const LabelTexts texts = reading.labelOf(line, binding);
  const auto isTaken = [&](const Binding& each) { return reading.hasLine(each.name); };
  if (wouldBeLine(texts.name, OVString(line.text()), isTaken)) return Fit::Other;
  reading.add(binding, OVString(line.text()), makeLabel(texts.name, texts.displayName),
              line.preference());
  return texts.isUsual ? Fit::Usual : Fit::Unusual;
}

bool spellOther(const Binding& /*binding*/, const PersonValues& /*values*/,
                const OVSingleValue* entry, Spelling& spelling) {
  const OVString text = ov::cast<OVString>(entry->value());
  spelling.value = escapeText(text);
  return !text.isNull();
}

}  // namespace ov::card
