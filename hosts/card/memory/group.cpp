// A group of a book over cards: members by reference, and by ID those that are not there yet.

#include "group.h"

#include <algorithm>

#include "mapping/others.h"
#include "store.h"

namespace ov::card {

namespace {

/// True when `wanted` is `start` or anywhere inside it.
bool holds(const std::shared_ptr<Group>& start, const Group* wanted) {
  std::vector<std::shared_ptr<Group>> open{start};
  std::unordered_set<const Group*> seen;
  while (!open.empty()) {
    const std::shared_ptr<Group> group = std::move(open.back());
    open.pop_back();
    if (group.get() == wanted) return true;
    if (!seen.insert(group.get()).second) continue;
    for (const auto& weak : group->subGroups) {
      if (auto sub = weak.lock()) open.push_back(std::move(sub));
    }
  }
  return false;
}

}  // namespace

OVList<IOVGroup> Group::subGroupObjects() const {
  auto groups = OVList<IOVGroup>::list();
  for (const auto& weak : subGroups) {
    const auto group = weak.lock();
    if (const auto shown = group == nullptr ? nullptr : group->object.lock()) {
      groups.push_back(shown);
    }
  }
  return groups;
}

OVList<IOVPerson> Group::personObjects() const {
  auto all = OVList<IOVPerson>::list();
  for (const OVRef<Person>& person : persons) all.push_back(person);
  return all;
}

bool Group::addPerson(const OVRef<IOVPerson>& person) {
  const auto ownBook = book.lock();
  const OVRef<Person> ours = ownBook == nullptr ? nullptr : ownBook->personOf(person);
  if (ours == nullptr || !personSet.insert(ours.get()).second) return false;
  persons.push_back(ours);
  return true;
}

bool Group::removePerson(const OVRef<IOVPerson>& person) {
  const auto ours = std::dynamic_pointer_cast<Person>(person);
  if (personSet.erase(ours.get()) == 0) return false;
  std::erase(persons, ours);
  return true;
}

bool Group::addSubGroup(const std::shared_ptr<Group>& group) {
  const auto ownBook = book.lock();
  if (group == nullptr || ownBook == nullptr || group->book.lock() != ownBook ||
      holds(group, this)) {
    return false;
  }
  const bool isThere = std::any_of(subGroups.begin(), subGroups.end(),
                                   [&](const auto& sub) { return sub.lock() == group; });
  if (isThere) return false;
  subGroups.push_back(group);
  ++group->parents;
  return true;
}

bool Group::removeSubGroup(const std::shared_ptr<Group>& group) {
  if (group == nullptr) return false;
  const std::size_t removed =
      std::erase_if(subGroups, [&](const auto& sub) { return sub.lock() == group; });
  if (removed > 0) --group->parents;
  return removed > 0;
}

GroupContent Group::content() const {
  GroupContent content{id, name, {}, oddLines};
  for (const OVRef<Person>& person : persons) content.members.push_back(person->ID());
  for (const auto& weak : subGroups) {
    if (const auto sub = weak.lock()) content.members.push_back(sub->id);
  }
  for (const MissingMember& member : missing) content.members.push_back(member.id);
  content.members.insert(content.members.end(), inRings.begin(), inRings.end());
  return content;
}

OVString Group::allOddLines() const {
  std::vector<OVString> ids;
  for (const MissingMember& member : missing) ids.push_back(member.id);
  ids.insert(ids.end(), inRings.begin(), inRings.end());
  return oddLinesWithMissing(oddLines, ids);
}

void Group::forgetMembers() {
  for (const auto& weak : subGroups) {
    if (const auto sub = weak.lock()) --sub->parents;
  }
  subGroups.clear();
  persons.clear();
  personSet.clear();
  missing.clear();
  inRings.clear();
}

void Group::write(std::string& out) const {
  GroupContent content = this->content();
  if (source.card.empty()) {
    writeGroup(content, out);
    return;
  }
  const auto ownBook = book.lock();
  if (!sourceID.isNull() && ownBook != nullptr && ownBook->has(sourceID)) content.id = sourceID;
  const CardText text(std::string(source.card));
  rewriteGroup(*text.card(), content, out);
}

}  // namespace ov::card
