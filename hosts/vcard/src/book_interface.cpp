#include <algorithm>
#include <array>
#include <filesystem>

#include <OVAddressBookSDK/property.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "book_content.h"
#include "group_objects.h"
#include "memory/card_id.h"

using ov::card::Person;
using ov::card::Store;

namespace {

constexpr std::array kCommon{
    &OVProPertyThumbnail, &OVProPertyName,    &OVProPertyCompany,  &OVProPertyPhone,
    &OVProPertyEmail,     &OVProPertyAddress, &OVProPertyBirthday, &OVProPertyNote,
};

}  // namespace

OVString OVVCardBook::ID() const { return content_->store->id; }

OVString OVVCardBook::name() const {
  return std::filesystem::path(content_->path.str()).stem().string();
}

OVList<OVProperty> OVVCardBook::supportProperty() const {
  return OVProperty::StandardPropertyArray().copy();
}

OVList<OVProperty> OVVCardBook::commonProperty() const {
  auto properties = OVList<OVProperty>::list();
  for (const OVString* const name : kCommon) {
    properties.push_back(OVProperty::propertyWithName(*name));
  }
  return properties;
}

std::uint64_t OVVCardBook::allPersonsCount() const { return content_->store->persons.size(); }

OVList<IOVPerson> OVVCardBook::allPersons() const {
  auto persons = OVList<IOVPerson>::list();
  for (const OVRef<Person>& person : content_->store->persons) persons.push_back(person);
  return persons;
}

OVList<IOVPerson> OVVCardBook::personsForIDs(const OVList<OVString>& personIDs) const {
  auto persons = OVList<IOVPerson>::list();
  if (personIDs == nullptr) return persons;
  for (const OVString id : personIDs) {
    const Store::Entry* const entry = content_->store->find(id);
    if (entry != nullptr && entry->person != nullptr) persons.push_back(entry->person);
  }
  return persons;
}

OVRef<IOVPerson> OVVCardBook::newPerson() {
  return content_->store->addPerson(ov::card::randomID(), {}, OVList<OVString>::list());
}

void OVVCardBook::removePersons(const OVList<IOVPerson>& persons) {
  if (persons == nullptr) return;
  std::unordered_set<const Person*> leaving;
  for (const OVRef<IOVPerson> person : persons) {
    if (const auto ours = content_->store->personOf(person)) leaving.insert(ours.get());
  }
  content_->store->removePersons(leaving);
}

OVRef<IOVPerson> OVVCardBook::addOneFromOtherPerson(const OVRef<IOVPerson>& person) {
  return person == nullptr ? nullptr : content_->store->addCopyOf(*person);
}

void OVVCardBook::addBatchPersonStart(std::int64_t count) {
  constexpr std::int64_t kMost = 1 << 20;  // a count from outside must not cost memory
  const auto room = static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, kMost));
  content_->store->persons.reserve(content_->store->persons.size() + room);
}

OVRef<IOVPerson> OVVCardBook::addBatchPersonForOther(const OVRef<IOVPerson>& person) {
  return addOneFromOtherPerson(person);
}

std::uint64_t OVVCardBook::rootGroupsCount() const {
  const auto& groups = content_->store->groups;
  return static_cast<std::uint64_t>(
      std::count_if(groups.begin(), groups.end(),
                    [](const Store::GroupPlace& place) { return place.group->parents == 0; }));
}

OVList<IOVGroup> OVVCardBook::rootGroups() const {
  auto groups = OVList<IOVGroup>::list();
  for (const Store::GroupPlace& place : content_->store->groups) {
    if (place.group->parents == 0) groups.push_back(place.object);
  }
  return groups;
}

OVRef<IOVGroup> OVVCardBook::groupByID(const OVString& groupID) const {
  const Store::Entry* const entry = content_->store->find(groupID);
  return entry == nullptr ? nullptr : entry->group.object;
}

OVRef<IOVGroup> OVVCardBook::addGroupByName(const OVString& name) {
  return name.isNull() ? nullptr : content_->store->addGroup(ov::card::randomID(), name);
}

bool OVVCardBook::removeGroup(const OVRef<IOVGroup>& group) {
  const auto* const ours = dynamic_cast<const OVVCardGroup*>(group.get());
  return ours != nullptr && content_->store->removeGroup(ov::vcard::GroupObjects::recordOf(*ours));
}

OVRef<OVTagManager> OVVCardBook::tagManager() const {
  if (content_->store->tags == nullptr) content_->store->makeTagManager();
  return content_->store->tags;
}
