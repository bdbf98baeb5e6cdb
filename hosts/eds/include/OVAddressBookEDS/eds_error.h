#pragma once

#include <system_error>

/// Why a call to the service failed, beside a deadline that has passed (`std::errc::timed_out`) and
/// a call that was stopped (`std::errc::operation_canceled`).
enum class OVEDSError : int {
  /// There is no session bus, or no service on it.
  NoService = 1,
  /// The service has no such book, or no longer.
  NoBook,
  /// The book may only be read.
  ReadOnly,
  /// The server cannot be reached. What was to be written waits in the book for the next save.
  Offline,
  /// The server wants other credentials.
  CredentialsNeeded,
  /// Others have changed what was to be written: see `OVEDSBook::conflicts`.
  Conflict,
  /// The service refused, for a reason of its own: see `OVEDSBook::problems`.
  Refused,
};

namespace ov::eds {
/// The category of these errors. Any thread may call it.
[[nodiscard]] const std::error_category& errorCategory() noexcept;
}  // namespace ov::eds

/// Lets an `OVEDSError` become an `std::error_code`.
[[nodiscard]] inline std::error_code make_error_code(OVEDSError error) noexcept {
  return {static_cast<int>(error), ov::eds::errorCategory()};
}

template <>
struct std::is_error_code_enum<OVEDSError> : std::true_type {};
