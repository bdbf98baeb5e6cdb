// The entries under names of the catalogue come first, in the catalogue's order, each under the
// catalogue's own name object; those under other names follow in the order in which they were set.

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>

#include "platform/maker.h"
#include "property/standard_properties.h"

using ov::detail::kStandardPropertyCount;
using ov::detail::standardProperties;
using ov::detail::StandardProperty;
using ov::detail::TextField;

namespace {

constexpr std::string_view kIDKey = "ID";

/// The entry under a name; the end when there is none.
auto entryUnder(auto& entries, const OVStringView& name) {
  const std::size_t row = ov::detail::standardPropertyNamed(name.view());
  const OVString* known = row == kStandardPropertyCount ? nullptr : &standardProperties()[row].name;
  return std::ranges::find_if(entries, [&](const auto& entry) {
    return known == nullptr ? entry.name == name : entry.name.isSame(*known);
  });
}

/// The check for a value, short for the classes that nearly all values are of.
OVRef<OVValue> asValue(const OVRef<OVObject>& object) {
  using ov::detail::isOfClass;
  if (isOfClass<OVMutableSingleValue>(object) || isOfClass<OVMutableMultipleValue>(object)) {
    return std::static_pointer_cast<OVValue>(object);
  }
  return ov::cast<OVValue>(object);
}

}  // namespace

OVRef<OVValue> OVPersonGeneral::valueByProperty(const OVRef<OVProperty>& property) const {
  return property == nullptr ? nullptr : valueByPropertyName(property->name());
}

OVRef<OVValue> OVPersonGeneral::valueByPropertyName(const OVStringView& name) const {
  const auto at = entryUnder(entries_, name);
  return at == entries_.end() ? nullptr : asValue(at->value);
}

void OVPersonGeneral::setValueByProperty(const OVRef<OVValue>& value,
                                         const OVRef<OVProperty>& property) {
  if (property != nullptr) setValueByPropertyName(value, property->name());
}

void OVPersonGeneral::setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) {
  if (value != nullptr && !name.isNull()) setObject(value, name);
}

void OVPersonGeneral::removeValueByPropertyName(const OVStringView& name) {
  const auto at = entryUnder(entries_, name);
  if (at == entries_.end()) return;
  const OVRef<OVObject> removed = std::move(at->value);  // destroyed once the person is consistent
  entries_.erase(at);
}

void OVPersonGeneral::setObject(OVRef<OVObject> object, const OVString& name) {
  const auto known = entryUnder(entries_, name);
  if (known != entries_.end()) {
    known->value.swap(object);
    return;
  }
  auto place = entries_.begin();
  for (const StandardProperty& row : standardProperties()) {
    if (row.name == name) {
      entries_.insert(place, {row.name, std::move(object)});
      return;
    }
    if (place != entries_.end() && place->name.isSame(row.name)) ++place;
  }
  entries_.push_back({name, std::move(object)});
}

OVList<OVProperty> OVPersonGeneral::notNullValueProperty() const {
  auto properties = OVList<OVProperty>::list();
  for (const Entry& entry : entries_) {
    if (ov::cast<OVValue>(entry.value) == nullptr) continue;
    if (const auto property = OVProperty::propertyWithName(entry.name)) {
      properties.push_back(property);
    }
  }
  return properties;
}

/// What an archive put where the interface has no such object.
void OVPersonGeneral::takeWhatReadsAsNull(const OVPersonGeneral& source) {
  if (ID_.isEmpty()) ID_ = source.ID_;
  for (const StandardProperty& row : standardProperties()) {
    const auto at = std::ranges::find(source.entries_, row.name, &Entry::name);
    const bool isOdd = at != source.entries_.end() && ov::cast<OVValue>(at->value) == nullptr;
    if (isOdd && valueByPropertyName(row.name) == nullptr) setObject(at->value, row.name);
  }
}

const OVClass& OVPersonGeneral::archivedClass() {
  static constexpr OVClass record{"OVPersonGeneral", nullptr,
                                  &ov::detail::Maker::empty<OVPersonGeneral>};
  return record;
}

const OVClass* OVPersonGeneral::classForCoder() const { return &archivedClass(); }

void OVPersonGeneral::encodeWithCoder(OVKeyedArchiver& coder) const {
  auto entry = entries_.begin();
  for (const StandardProperty& row : standardProperties()) {
    if (entry == entries_.end()) break;
    if (!entry->name.isSame(row.name)) continue;
    coder.encodeObjectForKey(entry->value, row.name);
    ++entry;
  }
  if (ID_.isEmpty()) {
    coder.encodeObjectForKey(OVString(), kIDKey);
  } else {
    ID_.encode(coder, kIDKey);
  }
}

void OVPersonGeneral::initWithCoder(OVKeyedUnarchiver& coder) {
  readFields(coder, standardProperties());
}

void OVPersonGeneral::readFields(OVKeyedUnarchiver& coder, std::span<const StandardProperty> rows) {
  entries_.clear();
  std::array<OVRef<OVObject>, kStandardPropertyCount> values;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    values[i] = coder.decodeObjectForKey(rows[i].name);
  }
  const auto absent = std::ranges::count(values, nullptr);
  entries_.reserve(values.size() - static_cast<std::size_t>(absent));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (values[i] != nullptr) entries_.push_back({rows[i].name, std::move(values[i])});
  }
  ID_ = TextField::decoded(coder, kIDKey);
  if (ID_.isEmpty()) ID_ = TextField("");
}
