#pragma once

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "support/values.h"

/// A person for lists.
class ListedPerson {
 public:
  explicit ListedPerson(const OVString& ID) : person_(OVPersonGeneral::initWithID(ID)) {}

  ListedPerson& name(const OVString& first, const OVString& middle, const OVString& last) {
    return put(OVProPertyName,
               valueOf(OVValueTypePersonName,
                       OVObjectPersonName::initWithFirstMiddleLast(first, middle, last)));
  }
  ListedPerson& text(const OVString& property, const OVString& text) {
    return put(property, textValue(text));
  }
  ListedPerson& phone(const OVString& number) {
    return add(OVProPertyPhone,
               valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber(number)));
  }
  ListedPerson& email(const OVString& address) {
    return add(OVProPertyEmail, valueOf(OVValueTypeEmail, OVObjectEmail::initWithEmail(address)));
  }
  operator OVRef<OVPersonGeneral>() const { return person_; }  // NOLINT
  [[nodiscard]] OVPersonGeneral& operator*() const { return *person_; }

 private:
  ListedPerson& put(const OVString& property, const OVRef<OVValue>& value) {
    person_->setValueByPropertyName(value, property);
    return *this;
  }
  ListedPerson& add(const OVString& property, const OVRef<OVSingleValue>& value) {
    auto several = ov::cast<OVMutableMultipleValue>(person_->valueByPropertyName(property));
    if (several == nullptr) several = OVMutableMultipleValue::init();
    several->addValue(value);
    return put(property, several);
  }

  OVRef<OVPersonGeneral> person_;
};
