#include <OVAddressBookSDK/person.h>

IOVPerson::~IOVPerson() = default;

OVString IOVPerson::nameChineesPinyin() const { return nullptr; }

OVString IOVPerson::showNameChineesPinyin() const { return nullptr; }
