#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookSDK/property.h>

#include "book_content.h"
#include "group_objects.h"
#include "memory/book_lists.h"
#include "memory/card_id.h"

using ov::card::Person;
using ov::card::Store;

OVString OVEDSBook::ID() const { return content_->store->id; }

OVString OVEDSBook::name() const { return {content_->connection->name()}; }

bool OVEDSBook::canOprate() const { return content_->connection->isWritable(); }

bool OVEDSBook::canCreateGroup() const { return canOprate() && content_->connection->keepsLists(); }

OVList<OVProperty> OVEDSBook::supportProperty() const {
  return OVProperty::StandardPropertyArray().copy();
}

OVList<OVProperty> OVEDSBook::commonProperty() const { return ov::card::commonProperties(); }

std::uint64_t OVEDSBook::allPersonsCount() const { return content_->store->persons.size(); }

OVList<IOVPerson> OVEDSBook::allPersons() const { return ov::card::allPersons(*content_->store); }

OVList<IOVPerson> OVEDSBook::personsForIDs(const OVList<OVString>& personIDs) const {
  return ov::card::personsForIDs(*content_->store, personIDs);
}

std::uint64_t OVEDSBook::rootGroupsCount() const {
  return ov::card::rootGroupsCount(*content_->store);
}

OVList<IOVGroup> OVEDSBook::rootGroups() const { return ov::card::rootGroups(*content_->store); }

OVRef<IOVGroup> OVEDSBook::groupByID(const OVString& groupID) const {
  return ov::card::groupByID(*content_->store, groupID);
}

OVRef<IOVGroup> OVEDSBook::addGroupByName(const OVString& name) {
  if (name.isNull() || !canCreateGroup()) return nullptr;
  return content_->store->addGroup(ov::card::randomID(), name);
}

bool OVEDSBook::removeGroup(const OVRef<IOVGroup>& group) {
  const auto* const ours = dynamic_cast<const OVEDSGroup*>(group.get());
  if (ours == nullptr || !canOprate()) return false;
  const auto record = ov::eds::GroupObjects::recordOf(*ours);
  const Store::Entry* const entry = content_->store->find(record->id);
  if (entry == nullptr || entry->group.group != record) return false;
  if (const auto base = content_->baseOf(*entry); !base.empty()) {
    content_->removed.emplace(record->id.str(), base);
  }
  content_->originals.erase(record->id.str());
  return content_->store->removeGroup(record);
}

OVRef<IOVPerson> OVEDSBook::newPerson() {
  if (!canOprate()) return nullptr;
  return content_->store->addPerson(ov::card::randomID(), {}, OVList<OVString>::list());
}

OVRef<IOVPerson> OVEDSBook::addOneFromOtherPerson(const OVRef<IOVPerson>& person) {
  if (person == nullptr || !canOprate()) return nullptr;
  return content_->store->addCopyOf(*person);
}

void OVEDSBook::addBatchPersonStart(std::int64_t count) {
  ov::card::makeRoom(*content_->store, count);
}

OVRef<IOVPerson> OVEDSBook::addBatchPersonForOther(const OVRef<IOVPerson>& person) {
  return addOneFromOtherPerson(person);
}

void OVEDSBook::addBatchPersonEnd() { save(); }

void OVEDSBook::removePersons(const OVList<IOVPerson>& persons) {
  if (persons == nullptr || !canOprate()) return;
  const auto leaving = ov::card::personsIn(*content_->store, persons);
  for (const Person* const person : leaving) {
    const std::string uid = person->ID().str();
    if (const auto base = content_->baseOf(uid); !base.empty())
      content_->removed.emplace(uid, base);
    content_->originals.erase(uid);
  }
  content_->store->removePersons(leaving);
}

OVRef<OVTagManager> OVEDSBook::tagManager() const {
  if (content_->store->tags == nullptr) content_->store->makeTagManager();
  return content_->store->tags;
}
