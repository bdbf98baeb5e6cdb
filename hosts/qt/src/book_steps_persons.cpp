// Steps that change persons and their tags. A person who is removed is remembered with tags and
// groups, so that all of it can come back; views are told of very many changes as of one reset.

#include <algorithm>

#include <OVAddressBookSDK/property.h>

#include "book_steps.h"

namespace ov::qt {

void BookSteps::setValue(const OVString& id, const OVString& property,
                         const OVRef<OVValue>& value) {
  const auto changed = person(id);
  if (changed == nullptr) return;
  if (value == nullptr) {
    ov::removeValue(*changed, property);
  } else {
    changed->setValueByPropertyName(value, property);
  }
  emit shown.personChanged(changed, property);
}

template <class Tell>
void BookSteps::tellOf(const Persons& persons, Tell tell) {
  constexpr std::size_t kMany = 500;
  if (persons.size() > kMany) {
    emit shown.personsReset();
  } else {
    std::for_each(persons.begin(), persons.end(), tell);
  }
}

OVRef<IOVPerson> BookSteps::bringOne(const OVRef<IOVPerson>& person) {
  auto came = person == nullptr ? book->newPerson() : book->addOneFromOtherPerson(person);
  if (came == nullptr) return nullptr;
  if (person != nullptr && came->ID() != person->ID()) laterIDs[person->ID()] = came->ID();
  return came;
}

Persons BookSteps::bring(const Persons& persons) {
  Persons arrived;
  for (const auto& person : persons) {
    if (const auto came = bringOne(person)) arrived.push_back(came);
  }
  tellOf(arrived, [this](const auto& person) { emit shown.personAdded(person); });
  return arrived;
}

std::vector<RemovedPerson> BookSteps::remove(const IDs& ids) {
  std::vector<RemovedPerson> removed;
  std::unordered_map<const IOVPerson*, std::size_t> places;
  Persons persons;
  auto list = OVList<IOVPerson>::list();
  for (const OVString& id : ids) {
    const auto leaving = person(id);
    if (leaving == nullptr || !places.emplace(leaving.get(), removed.size()).second) continue;
    removed.push_back({leaving, tagsOf(id), {}});
    persons.push_back(leaving);
    list.push_back(leaving);
  }
  for (const auto& each : allGroups()) {
    const auto members = each->persons();
    for (const auto& member : members) {
      const auto at = places.find(member.get());
      if (at != places.end()) removed[at->second].groups.push_back(each->ID());
    }
  }
  book->removePersons(list);
  tellOf(persons, [this](const auto& person) { emit shown.personRemoved(person); });
  return removed;
}

void BookSteps::bringBack(const std::vector<RemovedPerson>& removed) {
  Persons arrived;
  for (const RemovedPerson& each : removed) {
    const auto came = bringOne(each.person);
    if (came == nullptr) continue;
    if (!each.tags.empty()) setTags(came->ID(), each.tags);
    for (const OVString& id : each.groups) {
      if (const auto joined = group(id)) joined->addPerson(came);
    }
    arrived.push_back(came);
  }
  tellOf(arrived, [this](const auto& person) { emit shown.personAdded(person); });
}

IDs BookSteps::tagsOf(const OVString& id) const {
  const auto manager = book->tagManager();
  const auto tags = manager == nullptr ? nullptr : manager->tagsByPersonID(currentID(id));
  return {tags.begin(), tags.end()};
}

void BookSteps::setTags(const OVString& id, const IDs& tags) {
  const auto manager = book->tagManager();
  if (manager == nullptr) return;
  auto list = OVList<OVString>::list();
  for (const OVString& tag : tags) list.push_back(tag);
  manager->setTagsForPersonID(list, currentID(id));
}

void BookSteps::setTags(const TagsOf& all) {
  Persons changed;
  for (const auto& [id, tags] : all) {
    setTags(id, tags);
    if (const auto carrier = person(id)) changed.push_back(carrier);
  }
  tellOf(changed, [this](const auto& each) { emit shown.personChanged(each, OVProPertyTags); });
  emit shown.tagsChanged();
}

}  // namespace ov::qt
