#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

// A value is a datum with a type and a label; a property with several values holds a list of them.
OVRef<OVPersonGeneral> teaTrader() {
  auto person = OVPersonGeneral::initWithID("amara-7");

  auto name = OVObjectPersonName::initWithFirstMiddleLast("Amara", nullptr, "Okafor");
  person->setValueByPropertyName(ov::labelled(name, "name", OVValueTypePersonName), OVProPertyName);

  auto phones = OVMutableMultipleValue::init();
  phones->addValue(ov::labelled(OVObjectPhone::initWithPhoneNumber("+234 1 555 0143"), "office",
                                OVValueTypePhone));
  phones->addValue(ov::labelled(OVObjectPhone::initWithPhoneNumber("+234 803 555 0110"), "mobile",
                                OVValueTypePhone));
  phones->setMainValue(phones->valueAtIndex(1));
  person->setValueByPropertyName(phones, OVProPertyPhone);
  return person;
}

int main() {
  auto book = OVAddressBookGeneral::init();
  book->addPerson(teaTrader());
  auto group = OVGroupGeneral::init();
  group->setTitle("Suppliers");
  group->setPersons(OVList<OVString>::list({"amara-7"}));
  book->groupsDic().set("suppliers", group);

  const auto block = book->saveToData();
  std::ofstream("first.ovbook", std::ios::binary) << block->text();

  std::ifstream file("first.ovbook", std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  auto root = OVAddressBookGeneral::addressBookWithData(OVData::dataWithText(bytes));
  auto restored = ov::cast<OVAddressBookGeneral>(root);
  for (const auto& [ID, found] : restored->groupsDic()) {
    std::cout << found->title() << ":\n";
    for (const OVString& member : found->persons()) {
      const auto person = restored->personsDic()[member];
      std::cout << "  " << person->displayName() << ", " << person->mainPhone()->displayString()
                << "\n";
    }
  }
}
