#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "golden/golden_graphs.h"
#include "support/values.h"

namespace {

using Data = std::vector<OVRef<OVObject>>;

/// Some values under one label; the last is the main value.
OVRef<OVMutableMultipleValue> all(OVValueType type, const Data& data, const OVRef<OVLabel>& label) {
  auto values = OVMutableMultipleValue::init();
  for (const OVRef<OVObject>& datum : data) values->addValue(valueOf(type, datum, label));
  values->setMainValue(values->valueAtIndex(values->count() - 1));
  return values;
}

}  // namespace

OVRef<OVPersonGeneral> goldenPerson() {
  auto person = OVPersonGeneral::initWithID("ada");
  const auto home = labelOf("home");
  const auto work = labelOf("work");
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("Ada", "King", "Lovelace");
  const auto date = OVDate::dateWithYearMonthDay(1835, 7, 8);
  const auto set = [&](const OVString& property, const OVRef<OVValue>& value) {
    person->setValueByPropertyName(value, property);
  };
  set(OVProPertyThumbnail, valueOf(OVValueTypeImage, goldenImage()));
  set(OVProPertyName, valueOf(OVValueTypePersonName, name, labelOf("Name")));
  set(OVProPertyBirthday, valueOf(OVValueTypeDate, OVDate::dateWithYearMonthDay(1815, 12, 10)));
  set(OVProPertyTags, valueOf(OVValueTypeTags, OVList<OVString>::list({"a", "b"})));
  set(OVProPertyNote, valueOf(OVValueTypeNote, OVString("First of all programmers 😀")));
  for (const OVString& property :
       {OVProPertyMaidenName, OVProPertyIsOrganization, OVProPertyCompany,
        OVProPertyFirstNamePhonetic, OVProPertyLastNamePhonetic, OVProPertyTitle, OVProPertySuffix,
        OVProPertyNickname, OVProPertyDepartment, OVProPertyJobTitle}) {
    set(property, valueOf(OVValueTypeString, OVString("the " + property.str()), work));
  }
  set(OVProPertyPhone, all(OVValueTypePhone,
                           {OVObjectPhone::initWithPhoneNumber("+44 20 7946 0018"),
                            OVObjectPhone::initWithPhoneNumber("+44 20 7946 0019")},
                           home));
  set(OVProPertyEmail,
      all(OVValueTypeEmail, {OVObjectEmail::initWithEmail("a@example.org")}, work));
  set(OVProPertyDate, all(OVValueTypeDate, {date}, labelOf("anniversary")));
  set(OVProPertyURLs, all(OVValueTypeString, {OVString("https://example.org/ada")}, home));
  set(OVProPertyInstantMessage, all(OVValueTypeInstantMessage, {goldenAccount()}, home));
  set(OVProPertyAddress, all(OVValueTypeAddress, {goldenAddress()}, home));
  set(OVProPertyRelatedNames, all(OVValueTypeString, {OVString("Byron")}, labelOf("father")));
  set(OVProPertyOther, all(OVValueTypeString, {OVString("x"), OVString("y")}, nullptr));
  return person;
}
