#include <sstream>

#include <OVAddressBookSDK/address_formater.h>
#include <OVAddressBookSDK/country.h>

#include "address/test_data.h"
#include "support/fakes/locales.h"
#include "support/printers.h"

namespace {

std::string countryReport() {
  std::ostringstream report;
  for (const auto& row : addressTable("countries")) {
    const std::string& code = row.at(0);
    std::string upper = code;
    for (char& c : upper) c = static_cast<char>(c - 'a' + 'A');
    report << OVCountry::countryNameByCode(upper) << ' ' << OVCountry::standCode("x_" + upper);
    for (const std::string& each : {code, upper})
      if (const auto country = OVCountry::countryWithCode(each))
        report << ' ' << country->code() << country->name();
    report << '\n';
  }
  const auto countries = OVCountry::allCountry();
  for (const auto& country : countries) report << country->name() << '\n';
  return report.str();
}

std::string addressReport() {
  std::ostringstream report;
  const auto address = OVObjectAddress::init();
  for (const auto& row : addressTable("fields"))
    address->setStringValueForFieldName("\u0130\u0131I" + row.at(1), row.at(0));
  const auto formater = OVAddressFormater::initWithObject(address);
  for (const char* code : {"ie", "it", "IT", "is", "id", "in", "tr", "jp", "de"}) {
    address->setCountryCode(code);
    report << address->countryCode() << formater->formatString()
           << formater->stringByCountryCode(code) << '\n';
  }
  return report.str();
}

TEST(Locales, CountriesAreTheSameInAll) {
  EXPECT_NE(countryReport().find("Iceland is isIceland"), std::string::npos) << countryReport();
  expectSameInAllLocales(countryReport);
}

TEST(Locales, AddressesAreTheSameInAll) { expectSameInAllLocales(addressReport); }

}  // namespace
