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
  auto made = newCopy();
  if (made == nullptr) made = OVMutableSingleValue::init();
  made->setType(type());
  made->label_.place(label_.load());
  made->value_.place(value_.load());
  return made;
}

OVRef<OVMutableSingleValue> OVSingleValue::newCopy() const { return OVMutableSingleValue::init(); }

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

void OVSingleValue::encodeWithCoder(OVKeyedArchiver& coder) const {
  OVValue::encodeWithCoder(coder);
  if (auto label = label_.load()) coder.encodeObjectForKey(std::move(label), kLabelKey);
  if (auto value = value_.load()) coder.encodeObjectForKey(std::move(value), kValueKey);
}

void OVSingleValue::initWithCoder(OVKeyedUnarchiver& coder) {
  OVValue::initWithCoder(coder);
  label_.place(coder.decodeObjectForKey(kLabelKey));
  value_.place(coder.decodeObjectForKey(kValueKey));
}

namespace ov {

OVRef<OVMutableSingleValue> labelled(const OVRef<OVObject>& datum, const OVString& label,
                                     OVValueType type) {
  if (datum == nullptr) return nullptr;
  auto made = OVMutableSingleValue::init();
  if (!label.isNull()) {
    const auto madeLabel = OVLabel::init();
    madeLabel->setName(label);
    madeLabel->setDisplayName(label);
    made->setLabel(madeLabel);
  }
  made->setValue(datum);
  made->setType(type);
  return made;
}

OVRef<OVMutableSingleValue> labelled(const OVString& text, const OVString& label,
                                     OVValueType type) {
  return labelled(OVRef<OVObject>(text), label, type);
}

OVRef<OVMutableSingleValue> labelled(std::nullptr_t /*datum*/, const OVString& /*label*/,
                                     OVValueType /*type*/) {
  return nullptr;
}

}  // namespace ov
