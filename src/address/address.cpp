#include <OVAddressBookSDK/address.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "address/field_table.h"
#include "platform/maker.h"

using ov::detail::FieldNumber;
using ov::detail::kFieldNames;
using ov::detail::kFieldTable;

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

OVRef<OVObjectAddress> OVObjectAddress::init() {
  auto address = ov::detail::Maker::make<OVObjectAddress>();
  address->valueDic_ = Values::dictionary();
  return address;
}

void OVObjectAddress::setCountryCode(const OVString& code) {
  const auto country = OVCountry::countryWithCode(code);
  countryCode_.store(country == nullptr ? OVString() : country->code());
}

OVString OVObjectAddress::standFieldName(const OVString& fieldName) {
  const auto field = kFieldNames.find(fieldName);
  return field ? OVString(*kFieldTable[kStoredAs[*field]].name) : OVString();
}

OVString OVObjectAddress::stringValueByFieldName(const OVString& fieldName) const {
  return ov::cast<OVString>(valueDic_[standFieldName(fieldName)]);
}

void OVObjectAddress::setStringValueForFieldName(const OVString& value, const OVString& fieldName) {
  const OVString standardName = standFieldName(fieldName);
  if (value.isNull() || standardName.isNull() || valueDic_ == nullptr) return;
  if (value.empty()) {
    valueDic_.erase(standardName);
  } else {
    valueDic_.set(standardName, value);
  }
}

bool OVObjectAddress::isequalToAddress(const OVRef<OVObjectAddress>& other) const {
  if (other == nullptr) return false;
  const OVString code = countryCode();
  return !code.isNull() && code == other->countryCode() && sameValues(valueDic_, other->valueDic_);
}

std::uint64_t OVObjectAddress::valueCount() const { return valueDic_.size(); }

const OVClass& OVObjectAddress::archivedClass() {
  static constexpr OVClass record{"OVObjectAddress", nullptr,
                                  &ov::detail::Maker::empty<OVObjectAddress>};
  return record;
}

const OVClass* OVObjectAddress::classForCoder() const { return &archivedClass(); }

void OVObjectAddress::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (valueDic_ != nullptr) coder.encodeObjectForKey(valueDic_, kValueDicKey);
  if (const OVString code = countryCode_.load()) coder.encodeObjectForKey(code, kCountryCodeKey);
}

void OVObjectAddress::initWithCoder(OVKeyedUnarchiver& coder) {
  valueDic_ = coder.decodeObjectForKey<Values>(kValueDicKey);
  countryCode_.place(coder.decodeStringForKey(kCountryCodeKey));
}
