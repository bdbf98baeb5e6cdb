#include "book/archive/small_book.h"

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "support/archive/archived_fields.h"
#include "support/values.h"

namespace {

void set(const OVRef<OVPersonGeneral>& person, const OVString& name, OVValueType type,
         const OVRef<OVObject>& datum, const OVRef<OVLabel>& label = nullptr) {
  person->setValueByPropertyName(valueOf(type, datum, label), name);
}

void setAll(const OVRef<OVPersonGeneral>& person, const OVString& name,
            std::initializer_list<OVRef<OVMutableSingleValue>> values) {
  const auto all = OVMutableMultipleValue::init();
  for (const auto& value : values) all->addValue(value);
  all->setMainValue(*(values.end() - 1));
  person->setValueByPropertyName(all, name);
}

OVRef<OVObjectAddress> address() {
  auto address = OVObjectAddress::init();
  address->setCountryCode("de");
  address->setStringValueForFieldName("Görlitz", OVAddressFieldCity);
  address->setStringValueForFieldName("02826", OVAddressFieldPostalCode);
  return address;
}

OVRef<OVPersonGeneral> zoe() {
  auto person = OVPersonGeneral::initWithID("zoë");
  const auto home = labelOf("Home");
  set(person, OVProPertyName, OVValueTypePersonName,
      OVObjectPersonName::initWithFirstMiddleLast("Zoë", nullptr, "Ōe"), labelOf("Name"));
  set(person, OVProPertyThumbnail, OVValueTypeImage,
      OVImage::imageWithData(OVData::dataWithText("\x89PNG")), home);
  set(person, OVProPertyBirthday, OVValueTypeDate, OVDate::dateWithYearMonthDay(1969, 7, 20));
  set(person, OVProPertyNote, OVValueTypeNote, OVString("😀 note"));
  setAll(person, OVProPertyPhone,
         {valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber("+1 (555) 0100"), home),
          valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber(""), OVLabel::init())});
  setAll(person, OVProPertyEmail,
         {valueOf(OVValueTypeEmail, OVObjectEmail::initWithEmail("zoe@example.org"), home)});
  setAll(person, OVProPertyAddress, {valueOf(OVValueTypeAddress, address())});
  setAll(person, OVProPertyInstantMessage,
         {valueOf(OVValueTypeInstantMessage,
                  OVObjectInstantMessage::initWithUserNameServer(
                      "zoe", OVInstantMessageServer::serverWithName("Jabber")))});
  return person;
}

OVRef<OVPersonGeneral> other() {
  auto person = OVPersonGeneral::initWithID("b");
  set(person, OVProPertyCompany, static_cast<OVValueType>(-1), OVString("Example"));
  set(person, OVProPertyDate, OVValueTypeString, nullptr);
  set(person, OVProPertyOther, OVValueTypeString, foreignObject());
  person->setValueByPropertyName(OVMutableMultipleValue::init(), OVProPertyURLs);
  return person;
}

OVRef<OVGroupGeneral> group() {
  auto group = OVGroupGeneral::init();
  group->setTitle("Friends");
  group->setSubArray(OVList<OVString>::list());
  group->setPersons(OVList<OVString>::list({"zoë", "b"}));
  return group;
}

}  // namespace

OVRef<OVAddressBookGeneral> smallBook() {
  auto book = OVAddressBookGeneral::init();
  const auto person = zoe();
  book->personsDic().set("zoë", person);
  book->personsDic().set("again", person);
  book->personsDic().set("b", other());
  book->groupsDic().set("g", group());
  book->groupsDic().set("empty", OVGroupGeneral::init());
  return book;
}

OVRef<OVAddressBookGeneral> bookIn(const OVRef<OVData>& block) {
  return ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
}

OVRef<OVObject> datumOf(const OVRef<OVPersonGeneral>& person, const OVString& name) {
  const auto single = ov::cast<OVSingleValue>(person->valueByPropertyName(name));
  return single == nullptr ? person->valueOfMainValueForProPertyName(name) : single->value();
}
