#include "addresses.h"

#include <algorithm>
#include <array>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_field.h>

#include "ascii.h"
#include "country_codes.h"
#include "entries.h"
#include "escapes.h"

namespace ov::vcard {

namespace {

/// The parts of ADR and the fields that hold them. The first three share a field, one line each.
constexpr std::array kFields{
    &OVAddressFieldStreet,        &OVAddressFieldStreet,   &OVAddressFieldStreet,
    &OVAddressFieldCity,          &OVAddressFieldProvince, &OVAddressFieldPostalCode,
    &OVAddressFieldCountryOrArea,
};
constexpr std::size_t kStreet = 2;

/// The code that stands for no country at all.
constexpr std::string_view kNoCountry = "ZZ";

OVString countryCode(const Field& field, const OVObjectAddress& address) {
  const std::string_view given = trim(field.parameterValue("CC"));
  if (sameWord(given, kNoCountry)) return nullptr;
  if (OVString code = countryCodeOf(given)) return code;
  if (field.country != nullptr) {
    if (OVString code = countryCodeOf(field.country->text)) return code;
  }
  return countryCodeOf(address.stringValueByFieldName(OVAddressFieldCountryOrArea));
}

/// The CC parameter, where the country's text does not tell the code.
std::string countryParameter(const OVObjectAddress& address) {
  const OVString country = address.stringValueByFieldName(OVAddressFieldCountryOrArea);
  const OVString code = address.countryCode();
  if (countryCodeOf(country) == code) return {};
  return ";CC=" + (code.isNull() ? std::string(kNoCountry) : upperASCII(code));
}

}  // namespace

bool readAddress(const Field& field, const Binding& binding, PersonDraft& draft) {
  const std::vector<std::string> parts = field.components(",");
  const auto isEmpty = [](const std::string& part) { return part.empty(); };
  if (parts.size() > kFields.size() &&
      !std::all_of(parts.begin() + kFields.size(), parts.end(), isEmpty)) {
    return false;
  }
  if (std::all_of(parts.begin(), parts.end(), isEmpty)) return true;

  const OVRef<OVObjectAddress> address = OVObjectAddress::init();
  for (std::size_t i = 0; i < std::min(parts.size(), kFields.size()); ++i) {
    if (parts[i].empty()) continue;
    std::string text = address->stringValueByFieldName(*kFields[i]).str();
    text.append(text.empty() ? "" : "\n").append(parts[i]);
    address->setStringValueForFieldName(text, *kFields[i]);
  }
  if (const OVString code = countryCode(field, *address)) address->setCountryCode(code);
  return addEntry(field, binding, address, draft);
}

void writeAddresses(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    const auto address = ov::cast<OVObjectAddress>(entry->value());
    if (address == nullptr) continue;
    std::string value = ";";
    for (std::size_t i = kStreet; i < kFields.size(); ++i) {
      value.append(";").append(escapeText(address->stringValueByFieldName(*kFields[i])));
    }
    writer.write(entry, countryParameter(*address), value);
  }
}

}  // namespace ov::vcard
