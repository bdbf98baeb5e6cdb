#include "book_lists.h"

#include <algorithm>
#include <array>

namespace ov::card {

namespace {

constexpr std::array kCommon{
    &OVProPertyThumbnail, &OVProPertyName,    &OVProPertyCompany,  &OVProPertyPhone,
    &OVProPertyEmail,     &OVProPertyAddress, &OVProPertyBirthday, &OVProPertyNote,
};

}  // namespace

OVList<IOVPerson> allPersons(const Store& store) {
  auto persons = OVList<IOVPerson>::list();
  for (const OVRef<Person>& person : store.persons) persons.push_back(person);
  return persons;
}

OVList<IOVPerson> personsForIDs(const Store& store, const OVList<OVString>& ids) {
  auto persons = OVList<IOVPerson>::list();
  if (ids == nullptr) return persons;
  for (const OVString id : ids) {
    const Store::Entry* const entry = store.find(id);
    if (entry != nullptr && entry->person != nullptr) persons.push_back(entry->person);
  }
  return persons;
}

OVList<IOVGroup> rootGroups(const Store& store) {
  auto groups = OVList<IOVGroup>::list();
  for (const Store::GroupPlace& place : store.groups) {
    if (place.group->parents == 0) groups.push_back(place.object);
  }
  return groups;
}

std::uint64_t rootGroupsCount(const Store& store) {
  return static_cast<std::uint64_t>(
      std::count_if(store.groups.begin(), store.groups.end(),
                    [](const Store::GroupPlace& place) { return place.group->parents == 0; }));
}

OVRef<IOVGroup> groupByID(const Store& store, const OVString& id) {
  const Store::Entry* const entry = store.find(id);
  return entry == nullptr ? nullptr : entry->group.object;
}

std::unordered_set<const Person*> personsIn(const Store& store, const OVList<IOVPerson>& persons) {
  std::unordered_set<const Person*> found;
  if (persons == nullptr) return found;
  for (const OVRef<IOVPerson> person : persons) {
    if (const auto ours = store.personOf(person)) found.insert(ours.get());
  }
  return found;
}

void makeRoom(Store& store, std::int64_t count) {
  constexpr std::int64_t kMaxReserved = 1 << 20;
  const auto room = static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, kMaxReserved));
  store.persons.reserve(store.persons.size() + room);
}

OVList<OVProperty> commonProperties() {
  auto properties = OVList<OVProperty>::list();
  for (const OVString* const name : kCommon) {
    properties.push_back(OVProperty::propertyWithName(*name));
  }
  return properties;
}

}  // namespace ov::card
