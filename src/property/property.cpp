#include <OVAddressBookSDK/property.h>

#include <cstddef>
#include <utility>

#include <OVAddressBookSDK/log.h>

#include "platform/built_once.h"
#include "platform/maker.h"
#include "property/standard_properties.h"

namespace {

struct Catalogue {
  OVList<OVProperty> list = OVList<OVProperty>::list();
  OVDictionary<OVProperty> dictionary = OVDictionary<OVProperty>::dictionary();
};

ov::detail::BuiltOnce<Catalogue> catalogue;

Catalogue buildCatalogue() {
  Catalogue made;
  for (const ov::detail::StandardProperty& row : ov::detail::standardProperties()) {
    const auto property = ov::detail::Maker::make<OVProperty>(
        row.name, row.displayName == nullptr ? row.name : OVString(row.displayName), row.valueType,
        row.subValueType);
    made.list.push_back(property);
    made.dictionary.set(row.name, property);
  }
  return made;
}

}  // namespace

OVProperty::OVProperty(OVString name, OVString displayName, OVValueType valueType,
                       OVValueType subValueType)
    : name_(std::move(name)),
      displayName_(std::move(displayName)),
      valueType_(valueType),
      subValueType_(subValueType) {}

OVList<const OVProperty> OVProperty::StandardPropertyArray() {
  return catalogue.get(buildCatalogue).list;
}

OVDictionary<const OVProperty> OVProperty::StandardPropertyDictionary() {
  return catalogue.get(buildCatalogue).dictionary;
}

OVRef<OVProperty> OVProperty::propertyWithName(const OVStringView& name) {
  const std::size_t row = ov::detail::standardPropertyNamed(name.view());
  return row == ov::detail::kStandardPropertyCount ? nullptr
                                                   : catalogue.get(buildCatalogue).list[row];
}

void OVProperty::testAddress() { OVLog::sharedLog()->log("aa"); }
