#include <array>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/group_general.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/tag_manager.h>
#include <OVAddressBookSDK/value.h>

#include "platform/archive/class_table.h"

std::span<const OVClass* const> ov::libraryClasses() {
  static const std::array classes{
      &OVAddressBookGeneral::archivedClass(),
      &OVGroupGeneral::archivedClass(),
      &OVLabel::archivedClass(),
      &OVMultipleValue::archivedClass(),
      &OVMutableMultipleValue::archivedClass(),
      &OVMutableSingleValue::archivedClass(),
      &OVObjectAddress::archivedClass(),
      &OVObjectEmail::archivedClass(),
      &OVObjectInstantMessage::archivedClass(),
      &OVObjectPersonName::archivedClass(),
      &OVObjectPhone::archivedClass(),
      &OVPersonGeneral::archivedClass(),
      &OVSingleValue::archivedClass(),
      &OVTagManager::archivedClass(),
      &OVValue::archivedClass(),
  };
  return classes;
}
