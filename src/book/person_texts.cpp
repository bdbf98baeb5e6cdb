#include "book/person_texts.h"

#include <algorithm>

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

bool isListed(const OVString& name) {
  const auto& [personName, company, isOrganization, nickname, maidenName, firstPhonetic,
               lastPhonetic, phone, email, account, URL] = listedProperties();
  const auto all = {
      &personName,   &company, &isOrganization, &nickname, &maidenName, &firstPhonetic,
      &lastPhonetic, &phone,   &email,          &account,  &URL};
  return std::ranges::any_of(all, [&](const auto* each) { return (*each)->name() == name; });
}

}  // namespace ov::detail
