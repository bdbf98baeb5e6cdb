// Connects groups with members by ID, whichever comes first: a group waits for the members it
// misses. Rings of groups are cut. Everything is undone unless it is committed.

#include "membership.h"

#include <algorithm>
#include <utility>

#include "codec/ascii.h"
#include "mapping/group_card.h"

namespace ov::card {

namespace {

/// What an ID and everything that may mean it have in common.
std::string waitingKey(std::string_view id) { return lowerASCII(withoutPrefix(id)); }

/// Walks the groups from above and finds every way that leads back to where it came from.
class CycleCutter {
 public:
  /// Cuts the ways, and calls `cut` with each group and the sub-group that it loses.
  template <class Cut>
  void walkFrom(const std::shared_ptr<Group>& start, Cut cut) {
    if (!enter(start)) return;
    while (!path_.empty()) {
      Step& step = path_.back();
      auto& subGroups = step.group->subGroups;
      if (step.next == subGroups.size()) {
        above_.erase(step.group.get());
        path_.pop_back();
        continue;
      }
      const std::shared_ptr<Group> sub = subGroups[step.next].lock();
      if (above_.contains(sub.get())) {
        cut(step.group, sub, step.next);
      } else {
        ++step.next;
        enter(sub);
      }
    }
  }

 private:
  struct Step {
    std::shared_ptr<Group> group;
    std::size_t next = 0;
  };

  bool enter(const std::shared_ptr<Group>& group) {
    if (group == nullptr || !seen_.insert(group.get()).second) return false;
    above_.insert(group.get());
    path_.push_back({group, 0});
    return true;
  }

  std::unordered_set<const Group*> seen_;
  std::unordered_set<const Group*> above_;
  std::vector<Step> path_;
};

}  // namespace

Membership::~Membership() {
  for (Before& before : before_) {
    Group& group = *before.group;
    group.persons.swap(before.persons);
    group.personSet.swap(before.personSet);
    group.subGroups.swap(before.subGroups);
    group.parents = before.parents;
    group.missing.swap(before.missing);
    group.inRings.swap(before.inRings);
  }
}

void Membership::join() {
  std::vector<std::shared_ptr<Group>> groups = groupsThatWait();
  for (const Store::GroupPlace& place : transaction_.groups_) groups.push_back(place.group);
  groups.insert(groups.end(), transaction_.rejoining_.begin(), transaction_.rejoining_.end());
  for (const std::shared_ptr<Group>& group : groups) joinMembersOf(group);
  for (const std::shared_ptr<Group>& group : groups) waitFor(group);
  if (hasNewSubGroups_) cutCycles();
}

/// The groups of the book that miss somebody who may have come.
std::vector<std::shared_ptr<Group>> Membership::groupsThatWait() const {
  std::vector<std::shared_ptr<Group>> groups;
  if (book_.waiting.empty()) return groups;
  std::unordered_set<const Group*> seen;
  for (const auto& [id, entry] : transaction_.byID_) {
    const auto at = book_.waiting.find(waitingKey(id));
    if (at == book_.waiting.end()) continue;
    for (const std::weak_ptr<Group>& weak : at->second) {
      auto group = weak.lock();
      if (group != nullptr && seen.insert(group.get()).second) groups.push_back(std::move(group));
    }
  }
  std::sort(groups.begin(), groups.end(),
            [](const auto& a, const auto& b) { return a->order < b->order; });
  return groups;
}

void Membership::waitFor(const std::shared_ptr<Group>& group) {
  for (const Group::MissingMember& member : group->missing) {
    auto& groups = book_.waiting[waitingKey(member.id)];
    if (groups.empty() || groups.back().lock() != group) groups.push_back(group);
  }
}

const Store::Entry* Membership::resolve(const OVString& member) {
  const std::string_view bare = withoutPrefix(member);
  for (const std::string_view id : {member.view(), bare}) {
    if (const Store::Entry* const entry = transaction_.find(id)) return entry;
  }
  indexReferences();
  const std::string key = referenceKey(member);
  for (const Store::References* references :
       {&std::as_const(arrived_), &std::as_const(book_.references)}) {
    const auto at = references->find(key);
    if (at == references->end()) continue;
    if (const Store::Entry* const entry = transaction_.find(at->second)) return entry;
  }
  return nullptr;
}

void Membership::indexReferences() {
  if (isIndexed_) return;
  for (const auto& [id, entry] : transaction_.byID_) arrived_.emplace(referenceKey(id), id);
  for (; book_.referencedPersons < book_.persons.size(); ++book_.referencedPersons) {
    const OVString id = book_.persons[book_.referencedPersons]->ID();
    book_.references.emplace(referenceKey(id), id);
  }
  for (; book_.referencedGroups < book_.groups.size(); ++book_.referencedGroups) {
    const OVString& id = book_.groups[book_.referencedGroups].group->id;
    book_.references.emplace(referenceKey(id), id);
  }
  isIndexed_ = true;
}

void Membership::save(const std::shared_ptr<Group>& group) {
  if (!saved_.insert(group.get()).second) return;
  before_.push_back({group, group->persons, group->personSet, group->subGroups, group->parents,
                     group->missing, group->inRings});
}

void Membership::joinMembersOf(const std::shared_ptr<Group>& group) {
  save(group);
  std::unordered_set<const Group*> known;
  for (const auto& weak : group->subGroups) known.insert(weak.lock().get());
  std::erase_if(group->missing, [&](const Group::MissingMember& member) {
    const Store::Entry* const entry = resolve(member.id);
    if (entry == nullptr) return false;
    if (entry->person != nullptr) {
      if (group->personSet.insert(entry->person.get()).second) {
        group->persons.push_back(entry->person);
      }
    } else if (known.insert(entry->group.group.get()).second) {
      save(entry->group.group);
      group->subGroups.push_back(entry->group.group);
      ++entry->group.group->parents;
      hasNewSubGroups_ = true;
    }
    return true;
  });
}

void Membership::cutCycles() {
  CycleCutter cutter;
  const auto cut = [&](const std::shared_ptr<Group>& group, const std::shared_ptr<Group>& sub,
                       std::size_t place) {
    save(group);
    save(sub);
    group->inRings.push_back(sub->id);
    group->subGroups.erase(group->subGroups.begin() + static_cast<std::ptrdiff_t>(place));
    --sub->parents;
    transaction_.rings_.push_back(sub->place);
  };
  for (const auto* const places :
       {&std::as_const(book_.groups), &std::as_const(transaction_.groups_)}) {
    for (const Store::GroupPlace& place : *places) cutter.walkFrom(place.group, cut);
  }
}

}  // namespace ov::card
