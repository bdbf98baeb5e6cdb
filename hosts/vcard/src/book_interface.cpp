#include <algorithm>
#include <array>
#include <filesystem>

#include <OVAddressBookSDK/property.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "book_content.h"
#include "card_id.h"

using ov::vcard::BookContent;
using ov::vcard::Person;
using ov::vcard::Values;

namespace {

constexpr std::array kCommon{
    &OVProPertyThumbnail, &OVProPertyName,    &OVProPertyCompany,  &OVProPertyPhone,
    &OVProPertyEmail,     &OVProPertyAddress, &OVProPertyBirthday, &OVProPertyNote,
};

/// Values are copied, so that a change here does not show in the other book.
Values copiedValues(const IOVPerson& person) {
  Values values = Values::dictionary();
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    if (property->name() == OVProPertyTags) continue;
    if (const auto value = person.valueByProperty(property)) {
      values.set(property->name(), value->mutableCopy());
    }
  }
  return values;
}

/// The tags that a person answers, and those of a person that answers none but has a value of them.
OVList<OVString> copiedTags(const IOVPerson& person) {
  const OVList<OVString> tags = person.tagArray();
  if (tags != nullptr && !tags.empty()) return tags.copy();
  const auto value = ov::vcard::PersonValues(person).datum<OVList<OVString>>(OVProPertyTags);
  return value == nullptr ? OVList<OVString>::list() : value.copy();
}

}  // namespace

OVString OVVCardBook::ID() const { return content_->id; }

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

std::uint64_t OVVCardBook::allPersonsCount() const { return content_->persons.size(); }

OVList<IOVPerson> OVVCardBook::allPersons() const {
  auto persons = OVList<IOVPerson>::list();
  for (const OVRef<Person>& person : content_->persons) persons.push_back(person);
  return persons;
}

OVList<IOVPerson> OVVCardBook::personsForIDs(const OVList<OVString>& personIDs) const {
  auto persons = OVList<IOVPerson>::list();
  if (personIDs == nullptr) return persons;
  for (const OVString id : personIDs) {
    const auto at = content_->personsByID.find(id);
    if (at != content_->personsByID.end()) persons.push_back(at->second);
  }
  return persons;
}

OVRef<IOVPerson> OVVCardBook::newPerson() {
  return content_->addPerson(ov::vcard::randomID(), Values::dictionary(), OVList<OVString>::list());
}

void OVVCardBook::removePersons(const OVList<IOVPerson>& persons) {
  if (persons == nullptr) return;
  std::unordered_set<const Person*> leaving;
  for (const OVRef<IOVPerson> person : persons) {
    if (const auto ours = content_->personOf(person)) leaving.insert(ours.get());
  }
  content_->removePersons(leaving);
}

OVRef<IOVPerson> OVVCardBook::addOneFromOtherPerson(const OVRef<IOVPerson>& person) {
  if (person == nullptr) return nullptr;
  OVString id = person->ID();
  if (id.empty() || content_->has(id)) id = ov::vcard::randomID();
  const OVRef<Person> added =
      content_->addPerson(id, copiedValues(*person), OVList<OVString>::list());
  added->setTags(copiedTags(*person));
  return added;
}

void OVVCardBook::addBatchPersonStart(std::int64_t count) {
  constexpr std::int64_t kMost = 1 << 20;  // a count from outside must not cost memory
  const auto room = static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, kMost));
  content_->persons.reserve(content_->persons.size() + room);
}

OVRef<IOVPerson> OVVCardBook::addBatchPersonForOther(const OVRef<IOVPerson>& person) {
  return addOneFromOtherPerson(person);
}

std::uint64_t OVVCardBook::rootGroupsCount() const {
  return static_cast<std::uint64_t>(
      std::count_if(content_->groups.begin(), content_->groups.end(),
                    [](const auto& group) { return BookContent::recordOf(*group).parents == 0; }));
}

OVList<IOVGroup> OVVCardBook::rootGroups() const {
  auto groups = OVList<IOVGroup>::list();
  for (const OVRef<OVVCardGroup>& group : content_->groups) {
    if (BookContent::recordOf(*group).parents == 0) groups.push_back(group);
  }
  return groups;
}

OVRef<IOVGroup> OVVCardBook::groupByID(const OVString& groupID) const {
  const auto at = content_->groupsByID.find(groupID);
  return at == content_->groupsByID.end() ? nullptr : at->second;
}

OVRef<IOVGroup> OVVCardBook::addGroupByName(const OVString& name) {
  return name.isNull() ? nullptr : content_->addGroup(ov::vcard::randomID(), name);
}

bool OVVCardBook::removeGroup(const OVRef<IOVGroup>& group) {
  const OVRef<OVVCardGroup> ours = content_->groupOf(group);
  if (ours == nullptr) return false;
  content_->removeGroup(ours);
  return true;
}

OVRef<OVTagManager> OVVCardBook::tagManager() const {
  if (content_->tags == nullptr) content_->makeTagManager();
  return content_->tags;
}
