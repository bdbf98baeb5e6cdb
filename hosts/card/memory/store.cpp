// The persons and groups of a book, in their order and by ID. IDs of a book are unique, also
// between persons and groups.

#include "store.h"

#include <algorithm>
#include <new>

#include "card_id.h"

namespace ov::card {

namespace {

/// Into both, or, when memory runs out, into neither.
template <class T>
void addTo(std::vector<T>& all, const T& added, Store::ByText<Store::Entry>& byID,
           std::string_view id, Store::Entry entry) {
  all.push_back(added);
  try {
    byID.emplace(id, std::move(entry));
  } catch (const std::bad_alloc&) {
    all.pop_back();
    throw;
  }
}

/// Values are copied, so that a change here does not show in the other book.
ValueTable copiedValues(const IOVPerson& person) {
  ValueTable values;
  for (const OVRef<OVProperty>& property : OVProperty::StandardPropertyArray()) {
    if (property->name() == OVProPertyTags) continue;
    if (const auto value = person.valueByProperty(property)) {
      values.set(property->name(), value->mutableCopy());
    }
  }
  return values;
}

/// The tags that a person returns, and those of a person that returns none but has a value of them.
OVList<OVString> tagsOf(const IOVPerson& person) {
  const OVList<OVString> tags = person.tagArray();
  return tags.empty() ? PersonValues(person).datum<OVList<OVString>>(OVProPertyTags) : tags;
}

}  // namespace

const Store::Entry* Store::find(std::string_view anyID) const {
  const auto at = byID.find(anyID);
  return at == byID.end() ? nullptr : &at->second;
}

OVRef<Person> Store::addPerson(const OVString& personID, ValueTable values,
                               OVList<OVString> tagList) {
  auto person =
      std::make_shared<Person>(personID, std::move(values), std::move(tagList), weak_from_this());
  person->order = nextOrder++;
  addTo(persons, person, byID, person->key(), {person, {}});
  return person;
}

OVRef<Person> Store::addCopyOf(const IOVPerson& person) {
  OVString copyID = person.ID();
  if (copyID.empty() || has(copyID)) copyID = randomID();
  OVRef<Person> added = addPerson(copyID, copiedValues(person), OVList<OVString>::list());
  added->setTags(tagsOf(person));
  return added;
}

OVRef<Person> Store::personOf(const OVRef<IOVPerson>& person) const {
  auto ours = std::dynamic_pointer_cast<Person>(person);
  if (ours == nullptr) return nullptr;
  const Entry* const entry = find(ours->ID());
  return entry != nullptr && entry->person == ours ? ours : nullptr;
}

void Store::removePersons(const std::unordered_set<const Person*>& leaving) {
  for (const GroupPlace& place : groups) {
    Group& group = *place.group;
    std::erase_if(group.persons, [&](const auto& p) { return leaving.contains(p.get()); });
    std::erase_if(group.personSet, [&](const Person* p) { return leaving.contains(p); });
  }
  for (const OVRef<Person>& person : persons) {
    if (!leaving.contains(person.get())) continue;
    const OVList<OVString> carried = person->tagArray();
    if (tags != nullptr) tags->removeForPersonID(person->ID());
    person->leaveBook();
    person->setTags(carried);  // it keeps its tags, outside of the book
    byID.erase(person->key());
  }
  std::erase_if(persons, [&](const auto& p) { return leaving.contains(p.get()); });
  forgetReferences();
}

void Store::forgetReferences() {
  references.clear();
  referencedPersons = 0;
  referencedGroups = 0;
}

OVList<IOVGroup> Store::groupsOf(const Person& person) const {
  auto found = OVList<IOVGroup>::list();
  for (const GroupPlace& place : groups) {
    if (place.group->personSet.contains(&person)) found.push_back(place.object);
  }
  return found;
}

OVRef<IOVGroup> Store::addGroup(const OVString& groupID, const OVString& name) {
  auto group = std::make_shared<Group>();
  group->id = groupID;
  group->name = name;
  group->book = weak_from_this();
  group->order = nextOrder++;
  const GroupPlace place{group, makeGroup(group)};
  group->object = place.object;
  addTo(groups, place, byID, group->id, {nullptr, place});
  return place.object;
}

bool Store::removeGroup(const std::shared_ptr<Group>& group) {
  const Entry* const entry = group == nullptr ? nullptr : find(group->id);
  if (entry == nullptr || entry->group.group != group) return false;
  for (const GroupPlace& parent : groups) {
    std::erase_if(parent.group->subGroups, [&](const auto& sub) { return sub.lock() == group; });
  }
  for (const auto& weak : group->subGroups) {
    if (const auto sub = weak.lock()) --sub->parents;
  }
  group->subGroups.clear();
  group->parents = 0;
  group->book.reset();
  const OVRef<IOVGroup> object = entry->group.object;  // keeps the ID that is the key
  byID.erase(group->id.view());
  std::erase_if(groups, [&](const GroupPlace& place) { return place.group == group; });
  forgetReferences();
  return true;
}

void Store::makeTagManager() {
  const OVRef<OVTagManager> manager = OVTagManager::init();
  for (const OVRef<Person>& person : persons) {
    for (const OVString& tag : person->ownTags()) manager->addPersonIDForTag(person->ID(), tag);
  }
  tags = manager;
}

void Store::write(std::string& out) const {
  auto group = groups.begin();
  const auto writeGroupsBefore = [&](std::uint64_t order) {
    for (; group != groups.end() && group->group->order < order; ++group) group->group->write(out);
  };
  for (const OVRef<Person>& person : persons) {
    writeGroupsBefore(person->order);
    person->write(out);
  }
  writeGroupsBefore(nextOrder);
}

}  // namespace ov::card
