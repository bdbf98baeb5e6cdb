// The layout of a country's addresses, filled with values or returned as fields.

#include <OVAddressBookSDK/address_formater.h>

#include <string>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/country.h>

#include "address/layouts.h"
#include "platform/maker.h"

using ov::detail::FieldNumber;
using ov::detail::LayoutLine;
using ov::detail::layoutOf;

namespace {

using Fields = OVList<OVAdressField>;

OVString nameOf(FieldNumber field) { return OVString(*ov::detail::kFieldTable[field].name); }

void append(const LayoutLine& line, Fields& fields) {
  for (const FieldNumber field : line.fields())
    fields.push_back(OVAdressField::fieldWithName(nameOf(field)));
}

// The values in the order of the layout, those of one line joined by blanks.
OVString textOf(const OVRef<OVObjectAddress>& address, const OVStringView& code,
                std::string_view betweenLines) {
  std::string text;
  if (address == nullptr || code.isNull()) return text;
  std::string_view separator;
  for (const LayoutLine& line : layoutOf(code.view()).lines()) {
    bool hasValue = false;
    for (const FieldNumber field : line.fields()) {
      const OVString value = address->stringValueByFieldName(nameOf(field));
      if (value.isNull()) continue;
      text.append(separator).append(value.view());
      separator = " ";
      hasValue = true;
    }
    if (hasValue) separator = betweenLines;
  }
  return text;
}

OVString codeOf(const OVRef<OVObjectAddress>& address) {
  return address == nullptr ? OVString() : address->countryCode();
}

OVString localCode() {
  const auto country = OVCountry::local();
  return country == nullptr ? OVString() : country->code();
}

}  // namespace

OVAddressFormater::OVAddressFormater(OVRef<OVObjectAddress> address)
    : addressObject_(std::move(address)) {}

OVRef<OVAddressFormater> OVAddressFormater::initWithObject(OVRef<OVObjectAddress> address) {
  if (address == nullptr) return nullptr;
  return ov::detail::Maker::make<OVAddressFormater>(std::move(address));
}

OVString OVAddressFormater::formatString() const {
  return formatStringByCountryCode(codeOf(addressObject_));
}

OVString OVAddressFormater::string() const { return stringByCountryCode(codeOf(addressObject_)); }

OVString OVAddressFormater::formatStringByCountryCode(const OVStringView& code) const {
  return textOf(addressObject_, code, "\n");
}

OVString OVAddressFormater::stringByCountryCode(const OVStringView& code) const {
  return textOf(addressObject_, code, " ");
}

OVList<Fields> OVAddressFormater::fieldFormaterByCountryCode(const OVStringView& code) {
  auto lines = OVList<Fields>::list();
  if (code.isNull()) return lines;
  for (const LayoutLine& line : layoutOf(code.view()).lines()) {
    auto fields = Fields::list();
    append(line, fields);
    lines.push_back(fields);
  }
  return lines;
}

Fields OVAddressFormater::fieldArrayByCountryCode(const OVStringView& code) {
  auto fields = Fields::list();
  if (code.isNull()) return fields;
  for (const LayoutLine& line : layoutOf(code.view()).lines()) append(line, fields);
  return fields;
}

OVList<Fields> OVAddressFormater::fieldFormaterLocal() {
  return fieldFormaterByCountryCode(localCode());
}

Fields OVAddressFormater::fieldArrayLocal() { return fieldArrayByCountryCode(localCode()); }
