#include <OVAddressBookSDK/group.h>

#include <OVAddressBookSDK/group_general.h>

IOVGroup::~IOVGroup() = default;

OVRef<OVGroupGeneral> IOVGroup::emptyGeneralGroup() const { return OVGroupGeneral::init(); }
