#include <OVAddressBookSDK/group.h>

IOVGroup::~IOVGroup() = default;
