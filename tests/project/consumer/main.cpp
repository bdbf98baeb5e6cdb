#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <cstdio>

int main() {
  auto person = OVPersonGeneral::initWithID("1");
  auto number = OVObjectPhone::initWithPhoneNumber("555");
  auto phones = OVMutableMultipleValue::init();
  phones->addValue(
      OVPersonGeneral::singleValueByMacValueLabelType(number, nullptr, OVValueTypePhone));
  person->setValueByPropertyName(phones, OVProPertyPhone);
  auto book = OVAddressBookGeneral::init();
  book->addPerson(person);

  auto object = OVAddressBookGeneral::addressBookWithData(book->saveToData());
  auto restored = ov::cast<OVAddressBookGeneral>(object)->personsDic();
  std::printf("%s, %.1f, %s\n", restored["1"]->mainPhone()->phoneNumber().c_str(),
              OVAddressBookSDKVersionNumber, OVAddressBookSDKVersionString);
}
