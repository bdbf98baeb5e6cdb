#include <OVAddressBookSDK/value.h>

#include <cstdint>
#include <memory>
#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/maker.h"

namespace {

constexpr std::string_view kTypeKey = "type";

class RootValue final : public OVValue, public std::enable_shared_from_this<RootValue> {
 protected:
  /// Nothing can change a root value, so that it is its own copy.
  [[nodiscard]] OVRef<OVValue> copyValue() const override {
    return std::const_pointer_cast<RootValue>(shared_from_this());
  }
};

}  // namespace

OVRef<OVValue> OVValue::init() { return ov::detail::Maker::make<RootValue>(); }

OVValueType OVValue::type() const { return storedType(); }

const OVClass& OVValue::archivedClass() {
  static constexpr OVClass record{"OVValue", nullptr, &ov::detail::Maker::empty<RootValue>};
  return record;
}

const OVClass* OVValue::classForCoder() const { return &archivedClass(); }

void OVValue::encodeWithCoder(OVKeyedArchiver& coder) const { encodeType(coder, type()); }

// As a number without sign: negative codes do not take eight bytes.
void OVValue::encodeType(OVKeyedArchiver& coder, OVValueType type) {
  coder.encodeIntegerForKey(static_cast<std::uint32_t>(type), kTypeKey);
}

void OVValue::initWithCoder(OVKeyedUnarchiver& coder) {
  storeType(
      static_cast<OVValueType>(static_cast<std::uint32_t>(coder.decodeIntegerForKey(kTypeKey))));
}
