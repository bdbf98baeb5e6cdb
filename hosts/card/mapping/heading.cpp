#include "heading.h"

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>

#include "properties.h"

namespace ov::card {

namespace {

OVString textOf(const OVRef<OVObject>& datum) {
  if (const auto email = ov::cast<OVObjectEmail>(datum)) return email->email();
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) return phone->displayString();
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) return account->userName();
  return ov::cast<OVString>(datum);
}

/// The main entry of the property as a text, else the first one that has any.
OVString firstText(const PersonValues& values, const OVString& property) {
  Entries entries = values.entries(property);
  if (auto main = values.mainEntry(property)) entries.insert(entries.begin(), std::move(main));
  for (const OVRef<OVSingleValue>& entry : entries) {
    if (OVString text = textOf(entry->value()); !text.empty()) return text;
  }
  return nullptr;
}

}  // namespace

Heading headingOf(const IOVPerson& person) {
  const PersonValues values(person);
  const OVString name = person.displayName();
  const OVString company = values.text(OVProPertyCompany);
  if (!company.empty() && meansOrganization(values.text(OVProPertyIsOrganization))) {
    return {company, name.empty() || name == company ? OVString() : name};
  }
  if (!name.empty()) return {name, nullptr};
  for (const OVString* const property :
       {&OVProPertyCompany, &OVProPertyNickname, &OVProPertyEmail, &OVProPertyPhone,
        &OVProPertyInstantMessage, &OVProPertyURLs}) {
    if (OVString text = firstText(values, *property); !text.empty()) return {text, nullptr};
  }
  return {nullptr, nullptr};
}

}  // namespace ov::card
