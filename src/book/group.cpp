#include <OVAddressBookSDK/group.h>

#include <OVAddressBookSDK/group_general.h>

IOVGroup::~IOVGroup() = default;

OVRef<OVGroupGeneral> IOVGroup::emptyGeneralGroup() const { return OVGroupGeneral::init(); }

void IOVGroup::setDisplayName(const OVString& /*name*/) {}

bool IOVGroup::addPerson(const OVRef<IOVPerson>& /*person*/) { return false; }

bool IOVGroup::removePerson(const OVRef<IOVPerson>& /*person*/) { return false; }

bool IOVGroup::addSubGroup(const OVRef<IOVGroup>& /*group*/) { return false; }

bool IOVGroup::removeSubGroup(const OVRef<IOVGroup>& /*group*/) { return false; }
