#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace ov::detail {

/// Rounded towards zero; the nearest end of the range when it does not fit; 0 for not-a-number.
[[nodiscard]] inline std::int64_t integerFromReal(double real) {
  using Limits = std::numeric_limits<std::int64_t>;
  constexpr double kPast = 9223372036854775808.0;
  if (std::isnan(real)) return 0;
  if (real >= kPast) return Limits::max();
  if (real < -kPast) return Limits::min();
  return static_cast<std::int64_t>(real);
}

}  // namespace ov::detail
