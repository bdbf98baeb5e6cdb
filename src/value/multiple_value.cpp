#include <OVAddressBookSDK/multiple_value.h>

#include "platform/maker.h"

OVRef<OVMultipleValue> OVMultipleValue::init() {
  return ov::detail::Maker::make<OVMultipleValue>();
}

OVValueType OVMultipleValue::type() const { return OVValueTypeMultiple; }

OVValueType OVMultipleValue::subType() const { return OVValueTypeString; }

std::uint64_t OVMultipleValue::count() const { return 0; }

OVRef<OVSingleValue> OVMultipleValue::mainValue() const { return nullptr; }

OVRef<OVSingleValue> OVMultipleValue::valueAtIndex(std::uint64_t /*index*/) const {
  return nullptr;
}

std::uint64_t OVMultipleValue::indexOfValue(const OVRef<OVSingleValue>& /*value*/) const {
  return OVNotFound;
}

OVList<const OVLabel> OVMultipleValue::allLabel() const { return OVList<OVLabel>::immutableList(); }

OVList<OVString> OVMultipleValue::allLabelName() const { return OVList<OVString>::list(); }

OVRef<OVMutableMultipleValue> OVMultipleValue::mutableCopy() const {
  auto made = newCopy();
  if (made == nullptr) made = OVMutableMultipleValue::init();
  const std::uint64_t size = count();
  for (std::uint64_t i = 0; i < size; ++i) {
    if (const auto element = valueAtIndex(i)) made->addValue(element->copy());
  }
  // The position is that of the original, even when elements were left out on the way.
  made->setMainValue(made->valueAtIndex(indexOfValue(mainValue())));
  return made;
}

OVRef<OVMutableMultipleValue> OVMultipleValue::newCopy() const {
  return OVMutableMultipleValue::init();
}

OVRef<OVValue> OVMultipleValue::copyValue() const { return mutableCopy(); }

const OVClass& OVMultipleValue::archivedClass() {
  static const OVClass record{"OVMultipleValue", &OVValue::archivedClass(),
                              &ov::detail::Maker::empty<OVMultipleValue>};
  return record;
}

const OVClass* OVMultipleValue::classForCoder() const { return &archivedClass(); }

// An archive may have another type than the one that all multiple values return.
void OVMultipleValue::encodeWithCoder(OVKeyedArchiver& coder) const {
  encodeType(coder, storedType());
}
