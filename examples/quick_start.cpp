#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <iostream>

int main() {
  auto mira = OVPersonGeneral::initWithID("mira-1");
  auto name = OVObjectPersonName::initWithFirstMiddleLast("Mira", nullptr, "Halonen");
  mira->setValueByPropertyName(ov::labelled(name, "name", OVValueTypePersonName), OVProPertyName);
  auto phone = OVObjectPhone::initWithPhoneNumber("+44 20 7946 0018");
  auto phones = OVMutableMultipleValue::init();
  phones->addValue(ov::labelled(phone, "work", OVValueTypePhone));
  mira->setValueByPropertyName(phones, OVProPertyPhone);

  auto book = OVAddressBookGeneral::init();
  book->addPerson(mira);
  OVRef<OVData> block = book->saveToData();  // a binary property list: store it where you like

  auto restored = ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  for (const auto& [ID, person] : restored->personsDic())
    std::cout << ID << ": " << person->displayName() << ", " << person->mainPhone()->displayString()
              << "\n";
}
