#include <filesystem>

#include <OVAddressBookSDK/property.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "book_content.h"
#include "group_objects.h"
#include "memory/book_lists.h"
#include "memory/card_id.h"

OVString OVVCardBook::ID() const { return content_->store->id; }

OVString OVVCardBook::name() const {
  return std::filesystem::path(content_->path.str()).stem().string();
}

OVList<OVProperty> OVVCardBook::supportProperty() const {
  return OVProperty::StandardPropertyArray().copy();
}

OVList<OVProperty> OVVCardBook::commonProperty() const { return ov::card::commonProperties(); }

std::uint64_t OVVCardBook::allPersonsCount() const { return content_->store->persons.size(); }

OVList<IOVPerson> OVVCardBook::allPersons() const { return ov::card::allPersons(*content_->store); }

OVList<IOVPerson> OVVCardBook::personsForIDs(const OVList<OVString>& personIDs) const {
  return ov::card::personsForIDs(*content_->store, personIDs);
}

OVRef<IOVPerson> OVVCardBook::newPerson() {
  return content_->store->addPerson(ov::card::randomID(), {}, OVList<OVString>::list());
}

void OVVCardBook::removePersons(const OVList<IOVPerson>& persons) {
  if (persons == nullptr) return;
  content_->store->removePersons(ov::card::personsIn(*content_->store, persons));
}

OVRef<IOVPerson> OVVCardBook::addOneFromOtherPerson(const OVRef<IOVPerson>& person) {
  return person == nullptr ? nullptr : content_->store->addCopyOf(*person);
}

void OVVCardBook::addBatchPersonStart(std::int64_t count) {
  ov::card::makeRoom(*content_->store, count);
}

OVRef<IOVPerson> OVVCardBook::addBatchPersonForOther(const OVRef<IOVPerson>& person) {
  return addOneFromOtherPerson(person);
}

std::uint64_t OVVCardBook::rootGroupsCount() const {
  return ov::card::rootGroupsCount(*content_->store);
}

OVList<IOVGroup> OVVCardBook::rootGroups() const { return ov::card::rootGroups(*content_->store); }

OVRef<IOVGroup> OVVCardBook::groupByID(const OVString& groupID) const {
  return ov::card::groupByID(*content_->store, groupID);
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
