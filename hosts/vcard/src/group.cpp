#include <OVAddressBookVCard/vcard_group.h>

#include "group_objects.h"
#include "memory/general_group.h"
#include "memory/group.h"

using ov::card::Group;

namespace {

std::shared_ptr<Group> recordOf(const OVRef<IOVGroup>& group) {
  const auto* const ours = dynamic_cast<const OVVCardGroup*>(group.get());
  return ours == nullptr ? nullptr : ov::vcard::GroupObjects::recordOf(*ours);
}

}  // namespace

OVVCardGroup::OVVCardGroup(std::shared_ptr<Group> record) : record_(std::move(record)) {}

OVVCardGroup::~OVVCardGroup() = default;

OVString OVVCardGroup::ID() const { return record_->id; }

OVString OVVCardGroup::displayName() const { return record_->name; }

void OVVCardGroup::setDisplayName(const OVString& name) {
  record_->name = name.isNull() ? OVString("") : name;
}

OVList<IOVGroup> OVVCardGroup::subGroups() const { return record_->subGroupObjects(); }

OVList<IOVPerson> OVVCardGroup::persons() const { return record_->personObjects(); }

OVRef<OVGroupGeneral> OVVCardGroup::emptyGeneralGroup() const {
  const OVString odd = record_->allOddLines();
  if (odd.isNull()) return OVGroupGeneral::init();
  return ov::card::GeneralGroup::make(odd);
}

bool OVVCardGroup::addPerson(const OVRef<IOVPerson>& person) { return record_->addPerson(person); }

bool OVVCardGroup::removePerson(const OVRef<IOVPerson>& person) {
  return record_->removePerson(person);
}

bool OVVCardGroup::addSubGroup(const OVRef<IOVGroup>& group) {
  return record_->addSubGroup(recordOf(group));
}

bool OVVCardGroup::removeSubGroup(const OVRef<IOVGroup>& group) {
  return record_->removeSubGroup(recordOf(group));
}

namespace ov::vcard {

OVRef<IOVGroup> GroupObjects::make(std::shared_ptr<Group> record) {
  return OVRef<OVVCardGroup>(new OVVCardGroup(std::move(record)));
}

const std::shared_ptr<Group>& GroupObjects::recordOf(const OVVCardGroup& group) {
  return group.record_;
}

}  // namespace ov::vcard
