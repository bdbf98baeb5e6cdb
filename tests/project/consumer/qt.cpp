#include <OVAddressBookQt/block_book.h>
#include <OVAddressBookQt/persons_filter.h>
#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <cstdio>

int main() {
  auto general = OVAddressBookGeneral::init();
  auto person = OVPersonGeneral::initWithID("1");
  auto phones = OVMutableMultipleValue::init();
  phones->addValue(
      ov::labelled(OVObjectPhone::initWithPhoneNumber("555"), "home", OVValueTypePhone));
  person->setValueByPropertyName(phones, OVProPertyPhone);
  general->addPerson(person);
  OVQtBook book(OVBlockBook::initWithBook(general));
  OVPersonsModel persons(&book);
  OVPersonsFilter found(&persons);
  found.setText("5 5");
  std::printf("%s, %.1f, %s\n",
              qPrintable(found.index(0, 0).data(OVPersonsModel::MainPhoneRole).toString()),
              OVAddressBookSDKVersionNumber, OVAddressBookSDKVersionString);
}
