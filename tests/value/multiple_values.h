#pragma once

#include <initializer_list>
#include <vector>

#include <OVAddressBookSDK/multiple_value.h>

inline OVRef<OVMutableMultipleValue> multipleOf(
    std::initializer_list<OVRef<OVSingleValue>> elements) {
  auto multiple = OVMutableMultipleValue::init();
  for (const auto& element : elements) multiple->addValue(element);
  return multiple;
}

inline std::vector<OVRef<OVSingleValue>> elementsOf(const OVRef<OVMultipleValue>& multiple) {
  std::vector<OVRef<OVSingleValue>> elements;
  for (std::uint64_t i = 0; i < multiple->count(); ++i) {
    elements.push_back(multiple->valueAtIndex(i));
  }
  return elements;
}

using Elements = std::vector<OVRef<OVSingleValue>>;
