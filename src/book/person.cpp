#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/person_general.h>

IOVPerson::~IOVPerson() = default;

OVString IOVPerson::nameChineesPinyin() const { return nullptr; }

OVString IOVPerson::showNameChineesPinyin() const { return nullptr; }

namespace ov {

bool removeValue(IOVPerson& person, const OVString& name) {
  if (auto* const general = dynamic_cast<OVPersonGeneral*>(&person)) {
    general->removeValueByPropertyName(name);
  } else {
    person.setValueByPropertyName(nullptr, name);
  }
  return person.valueByPropertyName(name) == nullptr;
}

}  // namespace ov
