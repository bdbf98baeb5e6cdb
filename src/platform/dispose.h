#pragma once

#include <OVAddressBookSDK/object.h>

namespace ov::detail {

/// Releases a reference without deep recursion: where destroying one object destroys the next, and
/// so on, a bounded number are destroyed inside each other and the rest one after the other.
void dispose(OVRef<OVObject>&& reference) noexcept;

}  // namespace ov::detail
