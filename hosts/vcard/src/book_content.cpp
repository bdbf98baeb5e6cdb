#include "book_content.h"

#include <algorithm>
#include <new>

#include "person_writer.h"

namespace ov::vcard {

namespace {

/// Into both, or, when memory runs out, into neither.
template <class T>
void addTo(std::vector<T>& all, std::unordered_map<OVString, T>& byID, const OVString& id,
           const T& added) {
  all.push_back(added);
  try {
    byID.emplace(id, added);
  } catch (const std::bad_alloc&) {
    all.pop_back();
    throw;
  }
}

}  // namespace

OVRef<Person> BookContent::addPerson(const OVString& personID, Values values,
                                     OVList<OVString> tagList) {
  auto person =
      std::make_shared<Person>(personID, std::move(values), std::move(tagList), weak_from_this());
  addTo(persons, personsByID, personID, person);
  return person;
}

OVRef<Person> BookContent::personOf(const OVRef<IOVPerson>& person) const {
  auto ours = std::dynamic_pointer_cast<Person>(person);
  if (ours == nullptr) return nullptr;
  const auto at = personsByID.find(ours->ID());
  return at != personsByID.end() && at->second == ours ? ours : nullptr;
}

void BookContent::removePersons(const std::unordered_set<const Person*>& leaving) {
  for (const OVRef<OVVCardGroup>& group : groups) {
    GroupRecord& record = recordOf(*group);
    std::erase_if(record.persons, [&](const auto& p) { return leaving.contains(p.get()); });
    std::erase_if(record.personSet, [&](const Person* p) { return leaving.contains(p); });
  }
  for (const OVRef<Person>& person : persons) {
    if (!leaving.contains(person.get())) continue;
    const OVList<OVString> carried = person->tagArray();
    if (tags != nullptr) tags->removeForPersonID(person->ID());
    person->leaveBook();
    person->setTags(carried);  // it keeps its tags, outside of the book
    personsByID.erase(person->ID());
  }
  std::erase_if(persons, [&](const auto& p) { return leaving.contains(p.get()); });
}

OVList<IOVGroup> BookContent::groupsOf(const Person& person) const {
  auto found = OVList<IOVGroup>::list();
  for (const OVRef<OVVCardGroup>& group : groups) {
    if (recordOf(*group).personSet.contains(&person)) found.push_back(group);
  }
  return found;
}

OVRef<OVVCardGroup> BookContent::addGroup(const OVString& groupID, const OVString& name) {
  auto record = std::make_unique<GroupRecord>();
  record->id = groupID;
  record->name = name;
  record->book = weak_from_this();
  OVRef<OVVCardGroup> group(new OVVCardGroup(std::move(record)));
  addTo(groups, groupsByID, groupID, group);
  return group;
}

OVRef<OVVCardGroup> BookContent::groupOf(const OVRef<IOVGroup>& group) const {
  auto ours = std::dynamic_pointer_cast<OVVCardGroup>(group);
  if (ours == nullptr) return nullptr;
  const auto at = groupsByID.find(ours->ID());
  return at != groupsByID.end() && at->second == ours ? ours : nullptr;
}

void BookContent::removeGroup(const OVRef<OVVCardGroup>& group) {
  for (const OVRef<OVVCardGroup>& parent : groups) {
    std::erase_if(recordOf(*parent).subGroups,
                  [&](const auto& sub) { return sub.lock() == group; });
  }
  GroupRecord& record = recordOf(*group);
  for (const auto& weak : record.subGroups) {
    if (const auto sub = weak.lock()) --recordOf(*sub).parents;
  }
  record.subGroups.clear();
  record.parents = 0;
  record.book.reset();
  groupsByID.erase(record.id);
  std::erase(groups, group);
}

void BookContent::makeTagManager() {
  const OVRef<OVTagManager> manager = OVTagManager::init();
  for (const OVRef<Person>& person : persons) {
    const OVList<OVString> carried = person->tagArray();
    for (const OVString tag : carried) manager->addPersonIDForTag(person->ID(), tag);
  }
  tags = manager;
}

void writeGroup(const GroupRecord& group, std::string& out) {
  std::vector<OVString> members;
  for (const OVRef<Person>& person : group.persons) members.push_back(person->ID());
  for (const auto& weak : group.subGroups) {
    if (const auto sub = weak.lock()) members.push_back(sub->ID());
  }
  for (const GroupRecord::MissingMember& member : group.missing) members.push_back(member.id);
  writeGroup(group.id, group.name, members, group.others, out);
}

}  // namespace ov::vcard
