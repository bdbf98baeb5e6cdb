#include <OVAddressBookSDK/person_heading.h>

#include <string>

#include "book/person_texts.h"
#include "platform/ascii.h"

namespace ov {

namespace {

/// The main entry of the property as a text, else the first one that has any.
OVString firstText(const IOVPerson& person, const OVRef<OVProperty>& property) {
  const auto value = person.valueByProperty(property);
  OVString text;
  const auto take = [&text](const OVRef<OVObject>& datum) {
    text = detail::textOf(datum);
    return !text.empty();
  };
  const auto several = ov::cast<OVMultipleValue>(value);
  const auto main = several == nullptr ? nullptr : several->mainValue();
  if (main != nullptr && take(main->value())) return text;
  return detail::anyDatum(value, take) ? text : OVString();
}

}  // namespace

bool isOrganization(const IOVPerson& person) {
  const auto& property = detail::listedProperties().isOrganization;
  const std::string text = asciiLower(detail::firstDatum<OVString>(person, property).view());
  return !text.empty() && text != "0" && text != "no" && text != "false";
}

OVPersonHeading headingOf(const IOVPerson& person) {
  const auto& properties = detail::listedProperties();
  const OVString name = person.displayName();
  const OVString company = detail::firstDatum<OVString>(person, properties.company);
  if (!company.empty() && isOrganization(person)) {
    return {company, name.empty() || name == company ? OVString() : name};
  }
  if (!name.empty()) return {name, nullptr};
  if (!company.empty()) return {company, nullptr};
  for (const auto* property : {&properties.nickname, &properties.email, &properties.phone,
                               &properties.account, &properties.URL}) {
    if (OVString text = firstText(person, *property); !text.empty()) return {text, nullptr};
  }
  return {nullptr, nullptr};
}

}  // namespace ov
