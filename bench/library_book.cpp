#include "library_book.h"

#include <algorithm>
#include <string_view>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>

#include "sample_persons.h"

namespace bench {

namespace {

void setSingle(OVPersonGeneral& person, const OVString& name, const OVRef<OVObject>& datum) {
  const auto property = OVProperty::propertyWithName(name);
  person.setValueByProperty(OVPersonGeneral::singleValueByMacValueProperty(datum, property),
                            property);
}

OVRef<OVMutableSingleValue> labelled(const OVRef<OVObject>& datum, const char* name,
                                     OVValueType type) {
  static const OVString texts[] = {"Mobile", "Work", "Home"};
  return ov::labelled(datum, *std::ranges::find(texts, std::string_view(name), &OVString::view),
                      type);
}

OVRef<OVObjectAddress> addressOf(const SamplePerson& sample) {
  auto address = OVObjectAddress::init();
  address->setCountryCode(sample.countryCode);
  address->setStringValueForFieldName(sample.street, OVAddressFieldStreet);
  address->setStringValueForFieldName(sample.city, OVAddressFieldCity);
  address->setStringValueForFieldName(sample.province, OVAddressFieldProvince);
  address->setStringValueForFieldName(sample.postalCode, OVAddressFieldPostalCode);
  return address;
}

OVRef<OVPersonGeneral> personOf(const SamplePerson& sample) {
  auto person = OVPersonGeneral::initWithID(sample.id);
  setSingle(*person, OVProPertyName,
            OVObjectPersonName::initWithFirstMiddleLast(sample.first, sample.middle, sample.last));
  setSingle(*person, OVProPertyCompany, OVString(sample.company));
  setSingle(*person, OVProPertyJobTitle, OVString(sample.jobTitle));
  setSingle(*person, OVProPertyBirthday,
            OVDate::dateWithYearMonthDay(sample.birthYear, sample.birthMonth, sample.birthDay));
  setSingle(*person, OVProPertyNote, OVString(sample.note));

  const auto phones = OVMutableMultipleValue::init();
  const auto emails = OVMutableMultipleValue::init();
  for (std::size_t i = 0; i < sample.phones.size(); ++i) {
    phones->addValue(labelled(OVObjectPhone::initWithPhoneNumber(sample.phones[i]), kPhoneLabels[i],
                              OVValueTypePhone));
    emails->addValue(labelled(OVObjectEmail::initWithEmail(sample.emails[i]), kEmailLabels[i],
                              OVValueTypeEmail));
  }
  person->setValueByPropertyName(phones, OVProPertyPhone);
  person->setValueByPropertyName(emails, OVProPertyEmail);
  const auto addresses = OVMutableMultipleValue::init();
  addresses->addValue(labelled(addressOf(sample), kAddressLabel, OVValueTypeAddress));
  person->setValueByPropertyName(addresses, OVProPertyAddress);
  return person;
}

}  // namespace

OVRef<OVAddressBookGeneral> libraryBook(std::uint32_t count) {
  auto book = OVAddressBookGeneral::init();
  for (std::uint32_t i = 0; i < count; ++i) {
    const auto person = personOf(samplePerson(i));
    book->personsDic().set(person->ID(), person);
  }
  return book;
}

}  // namespace bench
