#pragma once

#include <string_view>

#include <OVAddressBookSDK/text.h>

namespace ov::vcard {

/// The code of a known country from its code or its name in English, in any case of letters; null
/// for any other text.
[[nodiscard]] OVString countryCodeOf(std::string_view codeOrName);

}  // namespace ov::vcard
