// Entries of now are paired with the lines that said them before. A line is kept where its entry is
// still there; the marks of main entries are put right last.

#include "plan.h"

#include <algorithm>

#include "others.h"
#include "properties.h"

namespace ov::card {

namespace {

/// Which of the lines is read as the main one; null when there is none.
const EntryLine* mainOf(const std::vector<EntryLine>& lines) {
  const EntryLine* main = nullptr;
  int best = kNotPreferred + 1;
  for (const EntryLine& each : lines) {
    const int preference = each.preference == Preference::First ? 1
                           : each.preference == Preference::None || each.line == nullptr
                               ? kNotPreferred
                               : each.line->preference();
    if (preference >= best) continue;
    best = preference;
    main = &each;
  }
  return main;
}

/// Makes sure that the main entry is read as such.
void prefer(const OVRef<OVSingleValue>& main, bool marksMain, std::vector<EntryLine>& lines) {
  const auto at = std::find_if(lines.begin(), lines.end(),
                               [&](const EntryLine& each) { return each.entry == main; });
  if (main == nullptr || at == lines.end()) return;
  if (marksMain && at->line == nullptr && lines.size() > 1) at->preference = Preference::First;
  if (mainOf(lines) == &*at) return;
  for (EntryLine& each : lines) {
    if (each.line != nullptr && each.line->preference() == 1) each.preference = Preference::None;
  }
  at->preference = Preference::First;
}

}  // namespace

Plan::Plan(const Lines& lines, const PersonReading& before, const PersonValues& now)
    : lines_(lines), before_(before), now_(now) {}

std::vector<EntryLine> Plan::entryLines(const Binding& binding, bool marksMain) const {
  const OVRef<OVValue> value = now_.value(*binding.property);
  Entries now = entriesOf(value);
  std::erase_if(now, [](const auto& entry) { return isOddLinesEntry(*entry); });
  const Entries before = before_.entries(*binding.property);
  std::vector<std::size_t> lineOfEntry(before.size());
  for (std::size_t i = 0; i < claims().size(); ++i) {
    const Claim& claim = claims()[i];
    if (claim.binding == nullptr || claim.fit == Fit::Nothing ||
        claim.binding->property != binding.property) {
      continue;
    }
    if (claim.entry < before.size()) lineOfEntry[claim.entry] = i;
  }
  std::vector<EntryLine> result(now.size());
  for (std::size_t i = 0; i < now.size(); ++i) result[i].entry = now[i];
  const std::vector<std::size_t> places = placesOf(before, now);
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (places[i] == kGone) continue;
    result[places[i]].line = &lines_[lineOfEntry[i]];
    result[places[i]].claim = &claims()[lineOfEntry[i]];
  }
  const auto several = ov::cast<OVMultipleValue>(value);
  const bool isOther = &binding == &otherBinding();
  if (several != nullptr && !isOther) prefer(several->mainValue(), marksMain, result);
  return result;
}

bool concerns(const Binding& binding, const OVString* property) {
  return binding.property == property ||
         std::find(binding.beside.begin(), binding.beside.end(), property) != binding.beside.end();
}

bool Plan::isChanged(const OVString& property) const {
  const auto at = std::find_if(changed_.begin(), changed_.end(),
                               [&](const auto& each) { return each.first == &property; });
  if (at != changed_.end()) return at->second;
  const bool changed = !sameDatum(before_.datum(property), now_.datum<OVObject>(property));
  changed_.emplace_back(&property, changed);
  return changed;
}

bool Plan::holds(const Claim& claim) const {
  const Binding& binding = *claim.binding;
  return !isChanged(*binding.property) &&
         std::none_of(binding.beside.begin(), binding.beside.end(), [&](const OVString* property) {
           return property != nullptr && isChanged(*property);
         });
}

bool Plan::belongsTo(const Claim& claim, const Binding& binding) {
  return claim.binding != nullptr && &bindings()[rankOf(*claim.binding)] == &binding;
}

bool Plan::isSaid(const Binding& binding) const {
  return std::any_of(claims().begin(), claims().end(), [&](const Claim& claim) {
    if (claim.binding == nullptr || claim.fit == Fit::Nothing || claim.binding->isLabelled() ||
        !concerns(*claim.binding, binding.property) || !holds(claim)) {
      return false;
    }
    // A formatted name says the name only where it is all that there is.
    const bool isFormatted = claim.binding->read == readFormattedName;
    if (binding.read == readFormattedName) return isFormatted;
    return !isFormatted || claim.fit == Fit::Unusual;
  });
}

std::size_t rankOf(const Binding& binding) {
  const auto all = bindings();
  if (binding.spell != nullptr) return static_cast<std::size_t>(&binding - all.data());
  const auto at = std::find_if(all.begin(), all.end(), [&](const Binding& each) {
    return each.spell != nullptr && each.property == binding.property;
  });
  return static_cast<std::size_t>(at - all.begin());
}

}  // namespace ov::card
