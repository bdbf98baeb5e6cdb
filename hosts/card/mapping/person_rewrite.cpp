// A changed person keeps its card: each line whose claim still holds is kept byte for byte, the
// others are dropped, and what is new is written in their place. The plan compares; the patch
// edits.

#include <algorithm>
#include <unordered_set>

#include "codec/escapes.h"
#include "others.h"
#include "patch.h"
#include "person_card.h"
#include "plan.h"
#include "properties.h"

namespace ov::card {

namespace {

/// Changes the lines of a card that no longer hold, and leaves the others where they are.
class ChangedCard {
 public:
  ChangedCard(const Card& card, const PersonReading& reading, const IOVPerson& person)
      : card_(card),
        reading_(reading),
        values_(person),
        plan_(card.lines, reading, values_),
        sink_(written_, card.version, card.lineEnd),
        patch_(card) {
    for (const Line& line : card.lines) sink_.reserveGroup(line.group());
  }

  void write(const OVString& id, std::string& out) {
    for (const Binding& binding : bindings()) {
      if (binding.spell == nullptr) continue;
      binding.isLabelled() ? planEntries(binding) : planOne(binding);
    }
    dropCompanions();
    planID(id);
    patch_.write(out);
  }

 private:
  void insertAt(std::size_t line) {
    patch_.insert(line, written_);
    written_.clear();
  }
  [[nodiscard]] const std::vector<Claim>& claims() const { return plan_.claims(); }

  void planOne(const Binding& binding) {
    std::size_t place = patch_.end();
    bool isLost = plan_.isChanged(*binding.property);
    for (const OVString* const property : binding.beside) {
      isLost |= property != nullptr && plan_.isChanged(*property);
    }
    for (std::size_t i = 0; i < claims().size(); ++i) {
      const Claim& claim = claims()[i];
      if (claim.binding == nullptr || claim.binding->isLabelled() || plan_.holds(claim) ||
          !concerns(*claim.binding, binding.property)) {
        continue;
      }
      isLost = true;
      if (!Plan::belongsTo(claim, binding)) continue;
      patch_.drop(i);
      place = std::min(place, i);
    }
    if (!isLost || plan_.isSaid(binding)) return;
    Spelling spelling{binding.name, {}, {}, {}, {}, {}};
    if (!binding.spell(binding, values_, nullptr, spelling)) return;
    sink_.write(spelling, Preference::Verbatim);
    insertAt(place);
  }

  void planEntries(const Binding& binding);
  void writeEntry(const Binding& binding, const EntryLine& entry, const Line* otherLine,
                  const LineGroup* group);
  void dropCompanions();
  void planID(const OVString& id);

  const Card& card_;
  const PersonReading& reading_;
  PersonValues values_;
  Plan plan_;
  std::string written_;
  LineSink sink_;
  Patch patch_;
  std::unordered_set<const LineGroup*> reusedGroups_;
};

/// The lines of a property that no entry is said by any more, in order.
std::vector<std::size_t> lostLines(const std::vector<Claim>& claims, const Binding& binding,
                                   const std::vector<EntryLine>& entries) {
  std::unordered_set<const Claim*> said;
  for (const EntryLine& each : entries) said.insert(each.claim);
  std::vector<std::size_t> lost;
  for (std::size_t i = 0; i < claims.size(); ++i) {
    const Claim& claim = claims[i];
    const bool isEntry = claim.binding != nullptr && claim.fit != Fit::Nothing &&
                         claim.binding->property == binding.property;
    if (isEntry && !said.contains(&claim)) lost.push_back(i);
  }
  return lost;
}

void ChangedCard::planEntries(const Binding& binding) {
  std::vector<EntryLine> entries = plan_.entryLines(binding, false);
  const bool isOther = &binding == &otherBinding();
  if (isOther && plan_.isChanged(OVProPertyName)) {
    // Another spelling of the name that was.
    std::erase_if(entries, [](const EntryLine& each) {
      return each.line != nullptr && each.line->name() == "FN";
    });
  }
  const std::vector<std::size_t> lost = lostLines(claims(), binding, entries);
  for (const std::size_t line : lost) patch_.drop(line);

  Entries all;
  for (const EntryLine& each : entries) all.push_back(each.entry);
  const OtherLines others(isOther ? all : Entries(), values_, true);
  const Entries before = reading_.entries(*binding.property);

  std::size_t next = patch_.end();  // where an entry is written that has no line
  if (!lost.empty()) next = lost.front();
  for (const EntryLine& each : entries) {
    if (each.claim != nullptr) {
      next = std::min(next, static_cast<std::size_t>(each.claim - claims().data()));
    }
  }
  std::size_t newEntries = 0;
  std::size_t floor = 0;  // lines from here on are after all that have been passed
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const EntryLine& each = entries[i];
    if (each.claim == nullptr) {
      const LineGroup* group = nullptr;
      if (newEntries < lost.size()) {
        const Claim& old = claims()[lost[newEntries]];
        const bool isSame = sameLabel(before[old.entry]->label(), each.entry->label());
        if (isSame && reusedGroups_.insert(old.group).second) group = old.group;
      }
      ++newEntries;
      writeEntry(binding, each, isOther ? others.lineOf(i) : nullptr, group);
      insertAt(next);
      continue;
    }
    const auto line = static_cast<std::size_t>(each.claim - claims().data());
    const bool isInOrder = line >= floor;
    if (isInOrder && each.preference == Preference::Verbatim) {
      floor = next = line + 1;
      continue;
    }
    patch_.drop(line);
    if (isInOrder) floor = next = line + 1;
    if (each.preference == Preference::Verbatim) {
      written_ += each.line->source();
    } else {
      sink_.writeAlone(*each.line, each.preference);
    }
    if (each.claim->group != nullptr) reusedGroups_.insert(each.claim->group);
    insertAt(isInOrder ? line : next);
  }
}

void ChangedCard::writeEntry(const Binding& binding, const EntryLine& entry, const Line* otherLine,
                             const LineGroup* group) {
  Spelling spelling{binding.name, {}, {}, {}, {}, {}};
  if (otherLine != nullptr) {
    spelling = spellingOfOther(*otherLine, *entry.entry);
  } else {
    if (!binding.spell(binding, values_, entry.entry.get(), spelling)) return;
    spelling.label = spellingOf(entry.entry->label(), binding.descriptor(), binding.name);
    const bool hasAnniversary =
        std::any_of(card_.lines.begin(), card_.lines.end(),
                    [](const Line& line) { return line.isNamed("ANNIVERSARY"); });
    if (binding.read == readDate && !hasAnniversary) becomeAnniversary(spelling);
  }
  sink_.write(spelling, entry.preference, group == nullptr ? std::string_view() : group->name);
}

/// A label goes with the last line that it labels.
void ChangedCard::dropCompanions() {
  std::unordered_set<const LineGroup*> alive = reusedGroups_;
  for (std::size_t i = 0; i < claims().size(); ++i) {
    if (patch_.keeps(i) && claims()[i].role == Claim::Role::Value) alive.insert(claims()[i].group);
  }
  for (std::size_t i = 0; i < claims().size(); ++i) {
    if (claims()[i].role != Claim::Role::Companion) continue;
    if (!alive.contains(claims()[i].group)) patch_.drop(i);
  }
}

/// A card without an ID has one that is made from what it says: it has to keep that when it says
/// something else.
void ChangedCard::planID(const OVString& id) {
  if (id.empty() || reading_.id() == id || (reading_.id().isNull() && patch_.isEmpty())) return;
  std::size_t place = 0;
  for (std::size_t i = 0; i < claims().size(); ++i) {
    if (claims()[i].role != Claim::Role::ID) continue;
    patch_.drop(i);
    place = i;
  }
  sink_.line({{}, "UID", {}}, escapeText(id));
  insertAt(place);
}

}  // namespace

void rewritePerson(const Card& card, const IOVPerson& person, const OVString& id,
                   const OVRef<OVImage>& photo, std::string& out) {
  LabelReader labels;
  const PersonReading reading(card.lines, labels, photo);
  ChangedCard(card, reading, person).write(id, out);
}

}  // namespace ov::card
