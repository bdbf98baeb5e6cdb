#pragma once

#include <glib.h>

#include <string>
#include <system_error>

#include <OVAddressBookEDS/eds_error.h>

namespace ov::eds {

[[nodiscard]] std::error_code meaningOf(const GError& error);
/// Whether the process behind a book has died, so that the call may be made again on a new one.
[[nodiscard]] bool isDeadProcess(const GError& error);
[[nodiscard]] bool isNotFound(const GError& error);
[[nodiscard]] bool isOutOfSync(const GError& error);
[[nodiscard]] bool isTaken(const GError& error);

}  // namespace ov::eds
