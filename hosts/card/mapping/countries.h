#pragma once

#include <string_view>

#include <OVAddressBookSDK/text.h>

namespace ov::card {

/// The code of a known country from its code or its name, in any case of letters: its English name,
/// its name in its own language or a widely spoken one. Null for any other text.
[[nodiscard]] OVString countryCodeOf(std::string_view codeOrName);

}  // namespace ov::card
