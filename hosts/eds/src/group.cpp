#include <OVAddressBookEDS/eds_group.h>

#include "group_objects.h"
#include "memory/general_group.h"

using ov::card::Group;

OVEDSGroup::OVEDSGroup(std::shared_ptr<Group> record) : record_(std::move(record)) {}

OVEDSGroup::~OVEDSGroup() = default;

OVString OVEDSGroup::ID() const { return record_->id; }

OVString OVEDSGroup::displayName() const { return record_->name; }

void OVEDSGroup::setDisplayName(const OVString& name) {
  record_->name = name.isNull() ? OVString("") : name;
}

OVList<IOVGroup> OVEDSGroup::subGroups() const { return record_->subGroupObjects(); }

OVList<IOVPerson> OVEDSGroup::persons() const { return record_->personObjects(); }

OVRef<OVGroupGeneral> OVEDSGroup::emptyGeneralGroup() const {
  const OVString odd = record_->allOddLines();
  if (odd.isNull()) return OVGroupGeneral::init();
  return ov::card::GeneralGroup::make(odd);
}

bool OVEDSGroup::addPerson(const OVRef<IOVPerson>& person) { return record_->addPerson(person); }

bool OVEDSGroup::removePerson(const OVRef<IOVPerson>& person) {
  return record_->removePerson(person);
}

namespace ov::eds {

OVRef<IOVGroup> GroupObjects::make(std::shared_ptr<Group> record) {
  return OVRef<OVEDSGroup>(new OVEDSGroup(std::move(record)));
}

const std::shared_ptr<Group>& GroupObjects::recordOf(const OVEDSGroup& group) {
  return group.record_;
}

}  // namespace ov::eds
