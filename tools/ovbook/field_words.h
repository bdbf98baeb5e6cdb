#pragma once

#include <string>
#include <string_view>

#include <OVAddressBookSDK/text.h>

namespace ovbook {

/// The word for an address field: its name without what all names begin with, "City" for
/// "OVAddressFieldCity".
[[nodiscard]] std::string_view wordOfField(const OVString& fieldName);

/// The field that a word means; null when there is none.
[[nodiscard]] OVString fieldOfWord(std::string_view word);

}  // namespace ovbook
