#include "book/person_texts.h"

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/phone.h>

#include "platform/built_once.h"

namespace ov::detail {

OVString textOf(const OVRef<OVObject>& datum) {
  if (auto text = ov::cast<OVString>(datum); !text.isNull()) return text;
  if (const auto email = ov::cast<OVObjectEmail>(datum)) return email->email();
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) return phone->displayString();
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) return account->userName();
  return nullptr;
}

const ListedProperties& listedProperties() {
  static BuiltOnce<ListedProperties> properties;
  return properties.get([] { return ListedProperties(); });
}

}  // namespace ov::detail
