#include "show/heading.h"

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/single_value.h>

namespace ovbook {

namespace {

OVString textOf(const OVPersonGeneral& person, const OVString& property) {
  const auto value = ov::cast<OVSingleValue>(person.valueByPropertyName(property));
  return value == nullptr ? OVString() : ov::cast<OVString>(value->value());
}

bool isOrganization(const OVPersonGeneral& person) {
  const OVString text = textOf(person, OVProPertyIsOrganization);
  return !text.empty() && text != "0" && text != "no" && text != "false";
}

}  // namespace

Heading headingOf(const OVString& ID, const OVPersonGeneral& person) {
  const OVString name = person.displayName();
  const OVString company = textOf(person, OVProPertyCompany);
  if (isOrganization(person) && !company.empty()) {
    return {company, name.empty() || name == company ? OVString() : name};
  }
  if (!name.empty()) return {name, nullptr};
  if (!company.empty()) return {company, nullptr};
  if (OVString nickname = textOf(person, OVProPertyNickname); !nickname.empty()) {
    return {nickname, nullptr};
  }
  if (const auto email = person.mainEmail(); email != nullptr && !email->email().empty()) {
    return {email->email(), nullptr};
  }
  if (const auto phone = person.mainPhone(); phone != nullptr && !phone->phoneNumber().empty()) {
    return {phone->phoneNumber(), nullptr};
  }
  return {ID, nullptr};
}

}  // namespace ovbook
