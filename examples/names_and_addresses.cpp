#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <iostream>

void showName() {
  OVUserDefaults::setStandardUserDefaults(OVUserDefaults::inMemory());
  auto name = OVObjectPersonName::initWithFirstMiddleLast("Ada", "M.", "Whitfield");
  std::cout << name->displayString() << "\n";
  OVAddressBook::setlastNameInFront(true);
  std::cout << name->displayString() << "\n";
}

void showAddress() {
  auto address = OVObjectAddress::init();
  address->setCountryCode("fr");
  address->setStringValueForFieldName("12 quai des Brumes", OVAddressFieldStreet);
  address->setStringValueForFieldName("29200", OVAddressFieldPostalCode);
  address->setStringValueForFieldName("Brest", OVAddressFieldCity);
  auto formater = OVAddressFormater::initWithObject(address);
  std::cout << formater->formatString() << "\n";
  std::cout << formater->stringByCountryCode("us") << "\n";
}

// An editor shows the fields of the country's layout, line by line, in that order.
void showEditor(const OVString& countryCode) {
  for (const auto& line : OVAddressFormater::fieldFormaterByCountryCode(countryCode)) {
    for (const auto& field : line) std::cout << "[" << field->displayName() << "]";
    std::cout << "\n";
  }
}

int main() {
  showName();
  showAddress();
  showEditor("jp");
  std::cout << OVCountry::countryWithCode("nz")->name() << "\n";
  auto phone = OVObjectPhone::initWithPhoneNumber("ask at the desk");
  std::cout << phone->displayString() << (phone->canDoCall() ? "" : " (cannot be called)") << "\n";
}
