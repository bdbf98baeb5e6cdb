#pragma once

#include <OVAddressBookSDK/text.h>

namespace ov {

/// The text without differences of case, accent and width; null for null. It is the same in every
/// locale.
[[nodiscard]] OVString searchForm(const OVString& text);

}  // namespace ov
