// ADR has seven parts, an address five fields. The first three parts share the street, one per
// line; the country code comes from a parameter, a companion line or the country's name.

#include <algorithm>
#include <array>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_field.h>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "countries.h"
#include "properties.h"
#include "reading.h"

namespace ov::card {

namespace {

/// The parts of ADR and the fields that hold them. The first three share a field, one line each.
constexpr std::array kFields{
    &OVAddressFieldStreet,        &OVAddressFieldStreet,   &OVAddressFieldStreet,
    &OVAddressFieldCity,          &OVAddressFieldProvince, &OVAddressFieldPostalCode,
    &OVAddressFieldCountryOrArea,
};
constexpr std::size_t kStreet = 2;

/// The code that means no country at all.
constexpr std::string_view kNoCountry = "ZZ";

/// The text of a part: the commas of a list stay.
std::vector<std::string> partsOf(std::string_view value) {
  std::vector<std::string> parts;
  for (const std::string_view part : splitValue(value, ';')) {
    std::string text;
    for (const std::string_view member : splitValue(part, ',')) {
      if (!text.empty() && !member.empty()) text += ',';
      text += unescape(member);
    }
    parts.push_back(std::move(text));
  }
  return parts;
}

OVRef<OVObjectAddress> addressOf(const std::vector<std::string>& parts,
                                 const PersonReading& reading) {
  OVRef<OVObjectAddress> address = OVObjectAddress::init();
  std::string street;
  for (std::size_t i = 0; i < std::min(parts.size(), kFields.size()); ++i) {
    if (parts[i].empty()) continue;
    if (i > kStreet) {
      address->setStringValueForFieldName(reading.shared(parts[i]), *kFields[i]);
    } else {
      street.append(street.empty() ? "" : "\n").append(parts[i]);
    }
  }
  if (!street.empty()) address->setStringValueForFieldName(street, OVAddressFieldStreet);
  return address;
}

/// The code that the card names; whether it names any.
bool codeOfCard(const Line& line, const LineGroup* group, OVString& code) {
  const std::string_view given = trim(line.parameterValue("CC"));
  if (sameWord(given, kNoCountry)) return true;
  code = countryCodeOf(given);
  if (code.isNull() && group != nullptr) code = group->countryCode;
  return !code.isNull();
}

/// The CC parameter, where the country's text does not give the code.
std::string countryParameter(const OVObjectAddress& address) {
  const OVString country = address.stringValueByFieldName(OVAddressFieldCountryOrArea);
  const OVString code = address.countryCode();
  if (countryCodeOf(country) == code) return {};
  return ";CC=" + (code.isNull() ? std::string(kNoCountry) : upperASCII(code.view()));
}

bool isUsualCountry(const Line& line, const LineGroup* group, const OVObjectAddress& address) {
  const Parameter* const parameter = line.parameter("CC");
  const std::string written = countryParameter(address);
  if (parameter != nullptr)
    return sameWord(written, ";CC=" + std::string(line.parameterValue("CC")));
  return group == nullptr || group->country == nullptr || !group->countryCode.isNull();
}

}  // namespace

Fit readAddress(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  const std::vector<std::string> parts = partsOf(line.value());
  const auto isEmpty = [](const std::string& part) { return part.empty(); };
  if (parts.size() > kFields.size() &&
      !std::all_of(parts.begin() + kFields.size(), parts.end(), isEmpty)) {
    return Fit::Other;
  }
  if (std::all_of(parts.begin(), parts.end(), isEmpty)) {
    return line.parameterValue("LABEL").empty() ? Fit::Nothing : Fit::Other;
  }
  const OVRef<OVObjectAddress> address = addressOf(parts, reading);
  const LineGroup* const group = reading.group();
  OVString code;
  if (!codeOfCard(line, group, code)) {
    code = countryCodeOf(address->stringValueByFieldName(OVAddressFieldCountryOrArea));
  }
  if (!code.isNull()) address->setCountryCode(code);
  const Fit fit = reading.add(line, binding, address);
  const bool isSpread = std::any_of(
      parts.begin(), parts.begin() + static_cast<std::ptrdiff_t>(std::min(parts.size(), kStreet)),
      [](const std::string& part) { return !part.empty(); });
  return isSpread || !isUsualCountry(line, group, *address) ? Fit::Unusual : fit;
}

bool spellAddress(const Binding& /*binding*/, const PersonValues& /*values*/,
                  const OVSingleValue* entry, Spelling& spelling) {
  const auto address = ov::cast<OVObjectAddress>(entry->value());
  if (address == nullptr) return false;
  spelling.parameters = countryParameter(*address);
  spelling.value = ";";
  for (std::size_t i = kStreet; i < kFields.size(); ++i) {
    spelling.value.append(";").append(escapeText(address->stringValueByFieldName(*kFields[i])));
  }
  return true;
}

}  // namespace ov::card
