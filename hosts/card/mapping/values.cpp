// The values of a person in a small vector: few persons have more than ten of the 23 properties.
// Data of every class are compared by content here, since objects themselves compare by identity
// only.

#include "values.h"

#include <algorithm>
#include <deque>
#include <unordered_map>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>

#include "keyed_hash.h"

namespace ov::card {

namespace {

constexpr std::array kAddressFields{&OVAddressFieldStreet, &OVAddressFieldPostalCode,
                                    &OVAddressFieldCity, &OVAddressFieldProvince,
                                    &OVAddressFieldCountryOrArea};

bool same(const OVObjectAddress& a, const OVObjectAddress& b) {
  return a.countryCode() == b.countryCode() &&
         std::all_of(kAddressFields.begin(), kAddressFields.end(), [&](const OVString* field) {
           return a.stringValueByFieldName(*field) == b.stringValueByFieldName(*field);
         });
}

bool same(const OVObjectInstantMessage& a, const OVObjectInstantMessage& b) {
  const auto nameOf = [](const OVRef<OVInstantMessageServer>& server) {
    return server == nullptr ? OVString() : server->name();
  };
  return a.userName() == b.userName() && nameOf(a.server()) == nameOf(b.server());
}

bool same(const OVObjectPersonName& a, const OVObjectPersonName& b) {
  return a.first() == b.first() && a.middle() == b.middle() && a.last() == b.last();
}

bool same(const OVImage& a, const OVImage& b) {
  return (a.data() == nullptr) == (b.data() == nullptr) &&
         (a.data() == nullptr || a.data()->text() == b.data()->text());
}

bool same(const OVList<OVString>& a, const OVList<OVString>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

bool same(const OVObjectPhone& a, const OVObjectPhone& b) {
  return a.phoneNumber() == b.phoneNumber();
}

bool same(const OVObjectEmail& a, const OVObjectEmail& b) { return a.email() == b.email(); }

bool same(const OVDate& a, const OVDate& b) {
  return a.timeIntervalSinceReferenceDate() == b.timeIntervalSinceReferenceDate();
}

/// True when both are of class T, which `areSame` then compares.
template <class T>
bool both(const OVRef<OVObject>& a, const OVRef<OVObject>& b, bool& areSame) {
  const auto first = ov::cast<T>(a);
  const auto second = ov::cast<T>(b);
  if (first == nullptr || second == nullptr) return false;
  if constexpr (std::is_same_v<T, OVList<OVString>>) {
    areSame = same(first, second);
  } else {
    areSame = same(*first, *second);
  }
  return true;
}

}  // namespace

OVRef<OVValue> ValueTable::find(const OVStringView& property) const {
  for (const auto& [name, value] : values_) {
    if (name == property) return value;
  }
  return nullptr;
}

void ValueTable::set(const OVString& property, OVRef<OVValue> value) {
  const auto at = std::find_if(values_.begin(), values_.end(),
                               [&](const auto& each) { return each.first == property; });
  if (value == nullptr) {
    if (at != values_.end()) values_.erase(at);
  } else if (at != values_.end()) {
    at->second = std::move(value);
  } else {
    values_.emplace_back(property, std::move(value));
  }
}

Entries entriesOf(const OVRef<OVValue>& value) {
  Entries entries;
  const auto take = [&](OVRef<OVSingleValue> entry) {
    if (entry != nullptr && entry->value() != nullptr) entries.push_back(std::move(entry));
  };
  if (const auto several = ov::cast<OVMultipleValue>(value)) {
    entries.reserve(several->count());
    for (std::uint64_t i = 0; i < several->count(); ++i) take(several->valueAtIndex(i));
  } else {
    take(ov::cast<OVSingleValue>(value));
  }
  return entries;
}

OVRef<OVValue> PersonValues::value(const OVString& property) const {
  return person_.valueByProperty(OVProperty::propertyWithName(property));
}

OVRef<OVSingleValue> PersonValues::mainEntry(const OVString& property) const {
  const auto several = ov::cast<OVMultipleValue>(value(property));
  return several == nullptr ? nullptr : several->mainValue();
}

bool sameDatum(const OVRef<OVObject>& a, const OVRef<OVObject>& b) {
  if (a == b) return true;
  if (a == nullptr || b == nullptr) return false;
  if (const OVString text = ov::cast<OVString>(a)) return text == ov::cast<OVString>(b);
  bool areSame = false;
  return (both<OVObjectPhone>(a, b, areSame) || both<OVObjectEmail>(a, b, areSame) ||
          both<OVDate>(a, b, areSame) || both<OVObjectAddress>(a, b, areSame) ||
          both<OVObjectInstantMessage>(a, b, areSame) || both<OVObjectPersonName>(a, b, areSame) ||
          both<OVImage>(a, b, areSame) || both<OVList<OVString>>(a, b, areSame)) &&
         areSame;
}

bool sameLabel(const OVRef<OVLabel>& a, const OVRef<OVLabel>& b) {
  if (a == b) return true;
  return a != nullptr && b != nullptr && a->name() == b->name() &&
         a->displayName() == b->displayName();
}

bool sameEntry(const OVSingleValue& a, const OVSingleValue& b) {
  return sameDatum(a.value(), b.value()) && sameLabel(a.label(), b.label());
}

std::string keyOf(const OVSingleValue& entry) {
  constexpr std::size_t kMaxPart = 64;
  std::string key;
  const auto add = [&](std::string_view text) {
    key.append(text.substr(0, kMaxPart)).append(std::to_string(text.size()));
  };
  const OVRef<OVObject> datum = entry.value();
  if (const OVString text = ov::cast<OVString>(datum)) add(text);
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) add(phone->phoneNumber());
  if (const auto email = ov::cast<OVObjectEmail>(datum)) add(email->email());
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) add(account->userName());
  if (const auto date = ov::cast<OVDate>(datum)) {
    key += std::to_string(date->timeIntervalSinceReferenceDate());
  }
  if (const auto address = ov::cast<OVObjectAddress>(datum)) {
    for (const OVString* field : kAddressFields) add(address->stringValueByFieldName(*field));
  }
  if (const OVRef<OVLabel> label = entry.label()) {
    add(label->name());
    add(label->displayName());
  }
  return key;
}

std::vector<std::size_t> placesOf(const Entries& before, const Entries& now) {
  std::vector<std::size_t> places(before.size(), kGone);
  std::size_t start = 0;  // most persons are as they were
  while (start < before.size() && start < now.size() && sameEntry(*before[start], *now[start])) {
    places[start] = start;
    ++start;
  }
  if (start == before.size() || start == now.size()) return places;
  std::unordered_map<std::string, std::deque<std::size_t>, KeyedHash> free;
  for (std::size_t i = start; i < now.size(); ++i) free[keyOf(*now[i])].push_back(i);
  for (std::size_t i = start; i < before.size(); ++i) {
    const auto at = free.find(keyOf(*before[i]));
    if (at == free.end()) continue;
    std::deque<std::size_t>& candidates = at->second;
    const auto found = std::find_if(candidates.begin(), candidates.end(), [&](std::size_t place) {
      return sameEntry(*before[i], *now[place]);
    });
    if (found == candidates.end()) continue;
    places[i] = *found;
    candidates.erase(found);
  }
  return places;
}

}  // namespace ov::card
