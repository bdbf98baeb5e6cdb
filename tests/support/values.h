#pragma once

#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/text.h>

/// A label whose two texts are the same.
inline OVRef<OVLabel> labelOf(const OVString& text) {
  auto label = OVLabel::init();
  label->setName(text);
  label->setDisplayName(text);
  return label;
}

inline OVRef<OVMutableSingleValue> valueOf(OVValueType type, const OVRef<OVObject>& datum,
                                           const OVRef<OVLabel>& label = nullptr) {
  auto value = OVMutableSingleValue::init();
  value->setType(type);
  value->setLabel(label);
  value->setValue(datum);
  return value;
}

/// A single value of a text; every one is an object of its own.
inline OVRef<OVMutableSingleValue> textValue(const OVString& text,
                                             OVValueType type = OVValueTypeString) {
  return valueOf(type, text);
}
