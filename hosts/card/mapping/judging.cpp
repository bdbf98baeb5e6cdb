// Marks as odd the lines that writing the values would not give again, because of their parameters,
// groups or preferences, so that they are kept.

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

#include "keyed_hash.h"
#include "others.h"
#include "reading.h"

namespace ov::card {

/// One preferred entry is the main one; more than that only the lines themselves say.
void PersonReading::judgePreferences() {
  for (const Several& several : several_) {
    std::vector<std::size_t> preferred;
    bool isOdd = false;
    for (std::size_t i = 0; i < claims_.size(); ++i) {
      const Claim& claim = claims_[i];
      if (claim.binding == nullptr || claim.binding->property != several.property ||
          claim.binding == &otherBinding() || claim.fit == Fit::Nothing ||
          (*lines_)[i].preference() == kNotPreferred) {
        continue;
      }
      isOdd |= (*lines_)[i].preference() != 1 || !preferred.empty();
      preferred.push_back(i);
    }
    for (const std::size_t i : preferred) claims_[i].isOdd |= isOdd;
  }
}

void PersonReading::judgeGroups() {
  for (const Claim& claim : claims_) {
    const bool saysNothing = claim.role == Claim::Role::Value && claim.fit == Fit::Nothing;
    if (claim.group != nullptr && saysNothing) --claim.group->count;
  }
  for (Claim& claim : claims_) {
    if (claim.group == nullptr || claim.role != Claim::Role::Value) continue;
    claim.isOdd |= claim.group->count > 1 && claim.fit != Fit::Nothing;
  }
}

/// The odd lines alone would not tell which of several equal entries they are about.
void PersonReading::judgeEqualEntries() {
  for (const Several& several : several_) {
    std::vector<Claim*> claims;
    for (Claim& claim : claims_) {
      if (claim.binding != nullptr && claim.binding->property == several.property &&
          claim.fit != Fit::Nothing) {
        claims.push_back(&claim);
      }
    }
    const auto keyOfEntry = [&](const Claim* claim) {
      return keyOf(*several.entries->valueAtIndex(claim->entry));
    };
    std::unordered_set<std::string, KeyedHash> odd;
    for (const Claim* const claim : claims) {
      if (claim->isOdd) odd.insert(keyOfEntry(claim));
    }
    if (odd.empty()) continue;
    for (Claim* const claim : claims) claim->isOdd |= odd.contains(keyOfEntry(claim));
  }
}

void PersonReading::judgeCompanions() {
  for (const Claim& claim : claims_) {
    if (claim.group != nullptr) claim.group->isOdd |= claim.isOdd;
  }
  for (Claim& claim : claims_) {
    if (claim.role == Claim::Role::Companion) claim.isOdd = claim.group->isOdd;
  }
}

/// Lines that say one thing together are odd together.
void PersonReading::judgeLinesOfOneProperty() {
  std::vector<const OVString*> odd;
  Claim* usualName = nullptr;  // writing the name gives it again, unless there is a second one
  for (std::size_t i = 0; i < claims_.size(); ++i) {
    if (&(*lines_)[i] == formatted_ && claims_[i].fit == Fit::Usual) usualName = &claims_[i];
  }
  bool hasSecondName = false;
  for (std::size_t i = 0; i < claims_.size(); ++i) {
    const Claim& claim = claims_[i];
    const bool isSecondName =
        usualName != nullptr && claim.binding == &otherBinding() && (*lines_)[i].name() == "FN";
    hasSecondName |= isSecondName;
    if (!claim.isOdd && !isSecondName) continue;
    const Binding* const binding =
        claim.binding == &otherBinding() ? bindingOf((*lines_)[i]) : claim.binding;
    if (binding != nullptr && !binding->isLabelled() &&
        std::find(odd.begin(), odd.end(), binding->property) == odd.end()) {
      odd.push_back(binding->property);
    }
  }
  if (odd.empty()) return;
  for (Claim& claim : claims_) {
    if (claim.binding == nullptr || claim.binding->isLabelled() || claim.fit == Fit::Nothing) {
      continue;
    }
    if (&claim == usualName && !hasSecondName) continue;
    claim.isOdd |= std::find(odd.begin(), odd.end(), claim.binding->property) != odd.end();
  }
}

}  // namespace ov::card
