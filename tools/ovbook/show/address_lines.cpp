#include "show/address_lines.h"

#include <array>
#include <stdexcept>
#include <unordered_set>

#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/address_formater.h>
#include <OVAddressBookSDK/country.h>

#include "field_words.h"
#include "output/lines.h"

namespace ovbook {

namespace {

/// The code of the country whose layout an address without a country gets; "", which has a layout
/// of its own, when the user has none.
OVString codeOfUser() {
  try {
    if (const auto country = OVCountry::defaultCountry()) return country->code();
  } catch (const std::out_of_range&) {  // the locale names no country
  }
  return "";
}

/// The standard fields that the layout shows.
std::unordered_set<OVString> fieldsOfLayout(const OVString& code) {
  std::unordered_set<OVString> fields;
  const auto layout = OVAddressFormater::fieldArrayByCountryCode(code);
  for (const auto& field : layout) {
    fields.insert(OVObjectAddress::standFieldName(field->name()));
  }
  return fields;
}

}  // namespace

std::vector<std::string> addressLines(const OVRef<OVObjectAddress>& address) {
  const OVString ownCode = address->countryCode();
  const OVString code = ownCode.isNull() ? codeOfUser() : ownCode;
  const OVString text = OVAddressFormater::initWithObject(address)->formatStringByCountryCode(code);
  std::vector<std::string> lines;
  if (!text.empty()) lines = linesOf(text);
  const auto shown = fieldsOfLayout(code);
  for (const OVString& field : {OVAddressFieldStreet, OVAddressFieldCity, OVAddressFieldProvince,
                                OVAddressFieldPostalCode, OVAddressFieldCountryOrArea}) {
    const OVString value = address->stringValueByFieldName(field);
    if (value.isNull() || shown.contains(field)) continue;
    lines.push_back("[" + std::string(wordOfField(field)) + ": " + value.str() + "]");
  }
  if (!ownCode.isNull()) lines.push_back("[country: " + ownCode.str() + "]");
  return lines;
}

}  // namespace ovbook
