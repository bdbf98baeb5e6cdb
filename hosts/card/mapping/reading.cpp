// Reads the values of a person from the lines of a card. Each line is claimed by the binding of its
// name; what has been read is then judged (judging.cpp).

#include "reading.h"

#include <algorithm>

#include <OVAddressBookSDK/person_general.h>

#include "codec/ascii.h"
#include "countries.h"
#include "others.h"

namespace ov::card {

namespace {

/// TYPE without a word, which is not written either.
bool saysNothing(const Parameter& parameter) {
  return parameter.name == "TYPE" &&
         std::all_of(parameter.values.begin(), parameter.values.end(), [](std::string_view value) {
           return value.find_first_not_of(", \t") == std::string_view::npos;
         });
}

}  // namespace

bool saysGroup(const Line& line) {
  return line.isNamed("KIND") && sameWord(trim(line.text()), "group");
}

bool isCompanion(const Line& line) {
  return line.name() == "X-ABLABEL" || line.name() == "X-ABADR";
}

OVString uidOf(const Lines& lines) {
  for (const Line& line : lines) {
    if (line.name() != "UID") continue;
    if (OVString id(trim(line.text())); !id.empty()) return id;
  }
  return nullptr;
}

PersonReading::PersonReading(const Lines& lines, LabelReader& labels, OVRef<OVImage> photo)
    : lines_(&lines), labels_(&labels), photo_(std::move(photo)), claims_(lines.size()) {
  const auto isPhoto = [](const Line& line) { return line.name() == "PHOTO"; };
  if (std::count_if(lines.begin(), lines.end(), isPhoto) > 1) photo_ = nullptr;
  readAll();
}

PersonReading PersonReading::ofOddLines(const Lines& lines, LabelReader& labels) {
  PersonReading reading;
  reading.lines_ = &lines;
  reading.labels_ = &labels;
  reading.claims_.resize(lines.size());
  reading.isOfOddLines_ = true;
  reading.readAll();
  return reading;
}

void PersonReading::readAll() {
  findGroups();
  for (const Line& line : *lines_) {
    if (formatted_ == nullptr && line.name() == "FN" && !line.text().empty()) formatted_ = &line;
  }
  readFirst("N");
  for (std::size_t i = 0; i < lines_->size(); ++i) {
    if (claims_[i].binding == nullptr) read((*lines_)[i], claims_[i]);
  }
  for (const Several& several : several_) values_.set(*several.property, several.entries);
  judgePreferences();
  judgeGroups();
  judgeEqualEntries();
  judgeCompanions();
  judgeLinesOfOneProperty();
}

void PersonReading::findGroups() {
  for (std::size_t i = 0; i < lines_->size(); ++i) {
    const Line& line = (*lines_)[i];
    if (line.group().empty()) continue;
    LineGroup& group = groups_[lowerASCII(line.group())];
    group.name = line.group();
    claims_[i].group = &group;
    const Line*& place = line.name() == "X-ABLABEL" ? group.label : group.country;
    if (isCompanion(line) && place == nullptr) {
      place = &line;
    } else {
      ++group.count;
      group.takesCountry |= line.name() == "ADR";
      const Binding* const binding = bindingOf(line);
      group.takesLabel |= !isCompanion(line) && (binding == nullptr || binding->isLabelled());
    }
  }
  for (auto& [name, group] : groups_) {
    if (group.label != nullptr && group.takesLabel) group.ownLabel = ownLabelOf(*group.label);
    if (group.country != nullptr && group.takesCountry) {
      group.countryCode = countryCodeOf(group.country->text());
    }
    group.count += static_cast<std::size_t>(group.label != nullptr && !group.takesLabel);
    group.count += static_cast<std::size_t>(group.country != nullptr && !group.takesCountry);
  }
}

/// What other lines say depends on whether there is such a line.
void PersonReading::readFirst(std::string_view name) {
  for (std::size_t i = 0; i < lines_->size(); ++i) {
    if ((*lines_)[i].name() != name) continue;
    read((*lines_)[i], claims_[i]);
    if (claims_[i].fit != Fit::Nothing) return;
  }
}

void PersonReading::read(const Line& line, Claim& claim) {
  const LineGroup* const group = claim.group;
  if (group != nullptr && ((&line == group->label && group->takesLabel) ||
                           (&line == group->country && group->takesCountry))) {
    claim.role = Claim::Role::Companion;
    return;
  }
  if (line.name() == "UID" && id_.isNull()) {
    claim.role = Claim::Role::ID;
    if (const std::string_view id = trim(line.text()); !id.empty()) id_ = OVString(id);
    return;
  }
  current_ = &claim;
  const Binding* const binding = bindingOf(line);
  claim.fit = binding == nullptr ? Fit::Other : binding->read(line, *binding, *this);
  if (claim.fit == Fit::Other) {
    claim.binding = &otherBinding();
    keep(line, claim);
    return;
  }
  if (claim.binding == nullptr) claim.binding = binding;
  if (claim.fit == Fit::Usual &&
      std::any_of(line.parameters().begin(), line.parameters().end(), [&](const Parameter& each) {
        return !binding->understands(each.name) && !saysNothing(each);
      })) {
    claim.fit = Fit::Unusual;
  }
  claim.isOdd = claim.fit == Fit::Unusual;
}

void PersonReading::keep(const Line& line, Claim& claim) {
  if (isProbe_) return;
  const bool isLabelled = claim.group != nullptr && claim.group->label != nullptr &&
                          claim.group->label != &line && claim.group->takesLabel;
  const OVString name(lineNameOf(line));
  const OVString display = isLabelled && !claim.group->ownLabel.displayName.empty()
                               ? claim.group->ownLabel.displayName
                               : OVString(line.name());
  add(otherBinding(), OVString(keptValueOf(line)),
      makeLabel(name, display == name ? name : display), line.preference());
}

LabelTexts PersonReading::labelOf(const Line& line, const Binding& binding) {
  const LineGroup* const group = current_->group;
  const bool isLabelled = group != nullptr && !group->ownLabel.displayName.empty();
  return labels_->read(line, binding.descriptor(), binding.impliedType,
                       isLabelled ? &group->ownLabel : nullptr);
}

Fit PersonReading::add(const Line& line, const Binding& binding, const OVRef<OVObject>& datum) {
  if (isProbe_) return Fit::Usual;
  const LabelTexts texts = labelOf(line, binding);
  add(binding, datum, makeLabel(texts.name, texts.displayName), line.preference());
  return texts.isUsual ? Fit::Usual : Fit::Unusual;
}

void PersonReading::add(const Binding& binding, const OVRef<OVObject>& datum,
                        const OVRef<OVLabel>& label, int preference) {
  if (isProbe_) return;
  auto at = std::find_if(several_.begin(), several_.end(), [&](const Several& several) {
    return several.property == binding.property;
  });
  if (at == several_.end()) {
    several_.push_back({binding.property, OVMutableMultipleValue::init(), kNotPreferred + 1});
    at = several_.end() - 1;
  }
  const OVRef<OVSingleValue> entry = OVPersonGeneral::singleValueByMacValueLabelType(
      datum, label, binding.descriptor().subValueType());
  current_->entry = at->entries->count();
  at->entries->addValue(entry);
  if (preference < at->bestPreference) {
    at->bestPreference = preference;
    at->entries->setMainValue(entry);
  }
}

bool PersonReading::has(const OVString& property) const {
  if (isProbe_) return present_ != nullptr && present_->value(property) != nullptr;
  return property == OVProPertyTags ? !tags_.empty() : values_.find(property) != nullptr;
}

bool PersonReading::set(const OVString& property, const OVRef<OVObject>& datum) {
  if (has(property)) return false;
  if (isProbe_) return true;
  values_.set(property, OVPersonGeneral::singleValueByMacValueProperty(
                            datum, OVProperty::propertyWithName(property)));
  return true;
}

void PersonReading::addTag(std::string_view tag) {
  if (tag.empty() || seenTags_.contains(tag) || isProbe_) return;
  const OVString text = shared(tag);
  seenTags_.insert(text.view());
  if (tags_ == nullptr) tags_ = OVList<OVString>::list();
  tags_.push_back(text);
}

OVString PersonReading::shared(std::string_view text) const {
  return labels_ == nullptr ? OVString(text) : labels_->shared(text);
}

bool PersonReading::hasLine(std::string_view name) {
  if (lines_ == nullptr) return false;
  if (lineNames_.empty()) {
    for (const Line& line : *lines_) lineNames_.insert(line.name());
  }
  return lineNames_.contains(name);
}

OVRef<OVObject> PersonReading::datum(const OVString& property) const {
  if (isProbe_) return present_ == nullptr ? nullptr : present_->datum<OVObject>(property);
  if (property == OVProPertyTags) return tags_.empty() ? OVRef<OVObject>() : tags_.object();
  const auto value = ov::cast<OVSingleValue>(values_.find(property));
  return value == nullptr ? nullptr : value->value();
}

Entries PersonReading::entries(const OVString& property) const {
  const auto at = std::find_if(several_.begin(), several_.end(), [&](const Several& several) {
    return *several.property == property;
  });
  return at == several_.end() ? Entries() : entriesOf(at->entries);
}

Fit PersonReading::fitOf(const Line& line, const PersonValues* values) {
  const Binding* const binding = bindingOf(line);
  if (binding == nullptr) return Fit::Other;
  PersonReading probe;
  Claim claim;
  probe.isProbe_ = true;
  probe.present_ = values;
  probe.current_ = &claim;
  probe.formatted_ = &line;
  return binding->read(line, *binding, probe);
}

}  // namespace ov::card
