#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/person_general.h>

#include "platform/maker.h"
#include "property/standard_properties.h"

// The entries under names of the catalogue stand first, in the catalogue's order, each under the
// catalogue's own name object; those under other names follow in the order in which they were set.

using ov::detail::kStandardPropertyCount;
using ov::detail::standardProperties;
using ov::detail::StandardProperty;

namespace {

constexpr std::string_view kIDKey = "ID";

}  // namespace

OVRef<OVValue> OVPersonGeneral::valueByProperty(const OVRef<OVProperty>& property) const {
  return property == nullptr ? nullptr : valueByPropertyName(property->name());
}

OVRef<OVValue> OVPersonGeneral::valueByPropertyName(const OVString& name) const {
  const auto at = std::ranges::find(entries_, name, &Entry::name);
  return at == entries_.end() ? nullptr : ov::cast<OVValue>(at->value);
}

void OVPersonGeneral::setValueByProperty(const OVRef<OVValue>& value,
                                         const OVRef<OVProperty>& property) {
  if (property != nullptr) setValueByPropertyName(value, property->name());
}

void OVPersonGeneral::setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) {
  if (value == nullptr || name.isNull()) return;
  const auto known = std::ranges::find(entries_, name, &Entry::name);
  if (known != entries_.end()) {
    const OVRef<OVObject> replaced = std::exchange(known->value, value);
    return;
  }
  auto place = entries_.begin();
  for (const StandardProperty& row : standardProperties()) {
    if (row.name == name) {
      entries_.insert(place, {row.name, value});
      return;
    }
    if (place != entries_.end() && place->name.isSame(row.name)) ++place;
  }
  entries_.push_back({name, value});
}

OVList<OVProperty> OVPersonGeneral::notNullValueProperty() const {
  auto properties = OVList<OVProperty>::list();
  for (const Entry& entry : entries_) {
    if (const auto property = OVProperty::propertyWithName(entry.name)) {
      properties.push_back(property);
    }
  }
  return properties;
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
  coder.encodeObjectForKey(ID_, kIDKey);
}

void OVPersonGeneral::initWithCoder(OVKeyedUnarchiver& coder) {
  entries_.clear();
  const auto rows = standardProperties();
  std::array<OVRef<OVObject>, kStandardPropertyCount> values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = coder.decodeObjectForKey(rows[i].name);
  }
  const auto absent = std::ranges::count(values, nullptr);
  entries_.reserve(values.size() - static_cast<std::size_t>(absent));
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] != nullptr) entries_.push_back({rows[i].name, std::move(values[i])});
  }
  ID_ = coder.decodeStringForKey(kIDKey);
  if (ID_.isNull()) ID_ = "";
}
