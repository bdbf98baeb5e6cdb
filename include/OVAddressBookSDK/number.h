#pragma once

#include <cstdint>
#include <variant>

#include <OVAddressBookSDK/object.h>

/// A number or a truth value, immutable.
class OV_EXPORT OVNumber final : public OVObject {
 public:
  /// Integers above the signed range are held unsigned; all others signed.
  using Value = std::variant<bool, std::int64_t, std::uint64_t, double>;

  /// A new number of this kind.
  /// @{
  [[nodiscard]] static OVRef<OVNumber> numberWithBool(bool value);
  [[nodiscard]] static OVRef<OVNumber> numberWithInteger(std::int64_t value);
  [[nodiscard]] static OVRef<OVNumber> numberWithUnsigned(std::uint64_t value);
  [[nodiscard]] static OVRef<OVNumber> numberWithDouble(double value);
  /// @}

  /// The number in the kind that it is held as.
  [[nodiscard]] Value value() const { return value_; }
  /// False for zero.
  [[nodiscard]] bool boolValue() const;
  /// Rounded towards zero; the nearest end of the range when it does not fit; 0 for not-a-number.
  [[nodiscard]] std::int64_t integerValue() const;
  /// The nearest double; 1 or 0 for a truth value.
  [[nodiscard]] double doubleValue() const;

  /// Written as a plain number, without a class of its own.
  [[nodiscard]] const OVClass* classForCoder() const override;

 private:
  friend struct ov::detail::Maker;
  explicit OVNumber(Value value) : value_(value) {}

  Value value_;
};
