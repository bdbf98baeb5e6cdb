#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/address.h>

namespace ovbook {

/// An address in its country's layout, in that of the user's country when it names none. The
/// country's code, and values for which the layout has no place, follow in brackets.
[[nodiscard]] std::vector<std::string> addressLines(const OVRef<OVObjectAddress>& address);

}  // namespace ovbook
