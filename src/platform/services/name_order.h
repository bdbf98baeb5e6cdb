#pragma once

namespace ov {

/// Whether person names are shown last name first, read from the standard user defaults each time.
[[nodiscard]] bool lastNameInFront();

/// Stores the preference durably, then announces it, even if it does not change.
void setLastNameInFront(bool flag);

}  // namespace ov
