#include <OVAddressBookSDK/single_value.h>

#include <string_view>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/dispose.h"
#include "platform/maker.h"

namespace {

constexpr std::string_view kLabelKey = "label";
constexpr std::string_view kValueKey = "value";

}  // namespace

OVRef<OVSingleValue> OVSingleValue::init() { return ov::detail::Maker::make<OVSingleValue>(); }

OVSingleValue::~OVSingleValue() {
  ov::detail::dispose(label_.take());
  ov::detail::dispose(value_.take());
}

OVRef<OVMutableSingleValue> OVSingleValue::mutableCopy() const {
  auto made = OVMutableSingleValue::init();
  made->setType(type());
  made->label_.place(label_.load());
  made->value_.place(value_.load());
  return made;
}

OVRef<OVValue> OVSingleValue::copyValue() const { return mutableCopy(); }

const OVClass& OVSingleValue::archivedClass() {
  static const OVClass record{"OVSingleValue", &OVValue::archivedClass(),
                              &ov::detail::Maker::empty<OVSingleValue>};
  return record;
}

const OVClass* OVSingleValue::classForCoder() const { return &archivedClass(); }

OVRef<OVMutableSingleValue> OVMutableSingleValue::init() {
  return ov::detail::Maker::make<OVMutableSingleValue>();
}

const OVClass& OVMutableSingleValue::archivedClass() {
  static const OVClass record{"OVMutableSingleValue", &OVSingleValue::archivedClass(),
                              &ov::detail::Maker::empty<OVMutableSingleValue>};
  return record;
}

const OVClass* OVMutableSingleValue::classForCoder() const { return &archivedClass(); }

void OVMutableSingleValue::encodeWithCoder(OVKeyedArchiver& coder) const {
  OVSingleValue::encodeWithCoder(coder);
  if (auto label = label_.load()) coder.encodeObjectForKey(std::move(label), kLabelKey);
  if (auto value = value_.load()) coder.encodeObjectForKey(std::move(value), kValueKey);
}

void OVMutableSingleValue::initWithCoder(OVKeyedUnarchiver& coder) {
  OVSingleValue::initWithCoder(coder);
  label_.place(coder.decodeObjectForKey(kLabelKey));
  value_.place(coder.decodeObjectForKey(kValueKey));
}
