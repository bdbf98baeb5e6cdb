#pragma once

#include <atomic>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/value_type.h>

/// The root of the values that a person holds, one per property.
///
/// Values are compared by identity. Their atomic fields (label, type and datum of a single value,
/// the main value of a multiple value) may be set on one thread while others read or save them;
/// everything else is for one thread at a time.
class OV_EXPORT OVValue : public OVObject {
 public:
  /// A value of exactly this class: immutable, of type 0.
  [[nodiscard]] static OVRef<OVValue> init();

  /// What the value holds: one of the codes of `value_type.h`.
  [[nodiscard]] virtual OVValueType type() const;

  /// A value of the root class returns itself; single and multiple values return a new mutable
  /// value. Never null.
  [[nodiscard]] OVRef<OVValue> copy() const { return copyValue(); }
  /// The same as `copy`.
  [[nodiscard]] OVRef<OVValue> mutableCopy() const { return copyValue(); }

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  OVValue() = default;

  /// What `copy` and `mutableCopy` return. Never null.
  [[nodiscard]] virtual OVRef<OVValue> copyValue() const = 0;

  /// Sets the result of `type`, unless a class overrides that.
  void storeType(OVValueType type) { type_.store(type, std::memory_order_relaxed); }
  /// What was stored or archived.
  [[nodiscard]] OVValueType storedType() const { return type_.load(std::memory_order_relaxed); }
  /// Writes the field that every value has.
  static void encodeType(OVKeyedArchiver& coder, OVValueType type);

 private:
  std::atomic<OVValueType> type_ = OVValueTypeString;
};
