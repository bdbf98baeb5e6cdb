// Twenty field names, five values: every name is folded onto its standard field before it is looked
// up.

#include <OVAddressBookSDK/address.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "address/field_table.h"
#include "platform/dispose.h"
#include "platform/maker.h"

using ov::detail::FieldNumber;
using ov::detail::kFieldNames;
using ov::detail::kFieldTable;
using ov::detail::Maker;
using ov::detail::TextField;

namespace {

constexpr std::string_view kValueDicKey = "valueDic";
constexpr std::string_view kCountryCodeKey = "countryCode";

constexpr std::array kStoredAs = []() {
  std::array<FieldNumber, kFieldTable.size()> fields{};
  for (std::size_t i = 0; i < fields.size(); ++i)
    fields[i] = kFieldNames.find(kFieldTable[i].storedAs).value();
  return fields;
}();

using Values = OVDictionary<OVObject>;

// Texts are equal by their characters, anything else that an archive held by identity.
bool sameValue(const OVRef<OVObject>& a, const OVRef<OVObject>& b) {
  if (a == b) return true;
  const auto text = ov::cast<OVString>(a);
  return !text.isNull() && text == ov::cast<OVString>(b);
}

bool sameValues(const Values& a, const Values& b) {
  return a.size() == b.size() && std::ranges::all_of(a, [&b](const auto& entry) {
           return b.contains(entry.first) && sameValue(entry.second, b[entry.first]);
         });
}

}  // namespace

OVRef<OVObjectAddress> OVObjectAddress::init() { return Maker::make<OVObjectAddress>(); }

OVObjectAddress::OVObjectAddress() : OVObjectAddress(Values::dictionary()) {}

OVObjectAddress::~OVObjectAddress() { ov::detail::dispose(std::move(valueDic_)); }

void OVObjectAddress::setCountryCode(const OVStringView& code) {
  const auto country = OVCountry::countryWithCode(code);
  countryCode_.store(TextField(country == nullptr ? OVString() : country->code()));
}

OVString OVObjectAddress::standFieldName(const OVStringView& fieldName) {
  const auto field = kFieldNames.find(fieldName.view());
  return field ? OVString(*kFieldTable[kStoredAs[*field]].name) : OVString();
}

OVString OVObjectAddress::stringValueByFieldName(const OVStringView& fieldName) const {
  return ov::cast<OVString>(values()[standFieldName(fieldName)]);
}

void OVObjectAddress::setStringValueForFieldName(const OVString& value,
                                                 const OVStringView& fieldName) {
  const OVString standardName = standFieldName(fieldName);
  const Values stored = values();
  if (value.isNull() || standardName.isNull() || stored.isNull()) return;
  if (value.empty()) {
    stored.erase(standardName);
  } else {
    stored.set(standardName, value);
  }
}

bool OVObjectAddress::isequalToAddress(const OVRef<OVObjectAddress>& other) const {
  if (other == nullptr) return false;
  const OVString code = countryCode();
  return !code.isNull() && code == other->countryCode() && sameValues(values(), other->values());
}

std::uint64_t OVObjectAddress::valueCount() const { return values().size(); }

const OVClass& OVObjectAddress::archivedClass() {
  // What is read brings its own dictionary, or has none.
  static constexpr OVClass record{"OVObjectAddress", nullptr, []() -> OVRef<OVObject> {
                                    return Maker::restore<OVObjectAddress>(Values());
                                  }};
  return record;
}

const OVClass* OVObjectAddress::classForCoder() const { return &archivedClass(); }

void OVObjectAddress::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (valueDic_ != nullptr) coder.encodeObjectForKey(valueDic_, kValueDicKey);
  countryCode_.load().encode(coder, kCountryCodeKey);
}

void OVObjectAddress::initWithCoder(OVKeyedUnarchiver& coder) {
  valueDic_ = coder.decodeObjectForKey(kValueDicKey);
  countryCode_.place(TextField::decoded(coder, kCountryCodeKey));
}
