#include <OVAddressBookSDK/OVAddressBookSDK.h>
#include <OVAddressBookVCard/vcard_book.h>

#include <cstdio>

int main() {
  constexpr const char* kCard = "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:1\r\nTEL:555\r\nEND:VCARD\r\n";
  auto source = OVVCardBook::init();
  source->loadWithData(OVData::dataWithText(kCard));
  auto snapshot = OVAddressBookGeneral::init();
  for (const auto& person : source->allPersons()) snapshot->addPerson(person);
  std::printf("%s, %.1f, %s\n", snapshot->personsDic()["1"]->mainPhone()->phoneNumber().c_str(),
              OVAddressBookSDKVersionNumber, OVAddressBookSDKVersionString);
}
