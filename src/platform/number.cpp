#include <OVAddressBookSDK/number.h>

#include <limits>

#include "platform/maker.h"
#include "platform/real.h"

using ov::detail::Maker;

OVRef<OVNumber> OVNumber::numberWithBool(bool value) { return Maker::make<OVNumber>(Value(value)); }

OVRef<OVNumber> OVNumber::numberWithInteger(std::int64_t value) {
  return Maker::make<OVNumber>(Value(value));
}

OVRef<OVNumber> OVNumber::numberWithUnsigned(std::uint64_t value) {
  if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    return numberWithInteger(static_cast<std::int64_t>(value));
  }
  return Maker::make<OVNumber>(Value(value));
}

OVRef<OVNumber> OVNumber::numberWithDouble(double value) {
  return Maker::make<OVNumber>(Value(value));
}

bool OVNumber::boolValue() const {
  return std::visit([](auto value) { return value != 0; }, value_);
}

double OVNumber::doubleValue() const {
  return std::visit([](auto value) { return static_cast<double>(value); }, value_);
}

std::int64_t OVNumber::integerValue() const {
  using Limits = std::numeric_limits<std::int64_t>;
  if (const auto* real = std::get_if<double>(&value_)) return ov::detail::integerFromReal(*real);
  if (std::holds_alternative<std::uint64_t>(value_)) return Limits::max();
  if (const auto* integer = std::get_if<std::int64_t>(&value_)) return *integer;
  return boolValue() ? 1 : 0;
}
