#pragma once

#include <string>
#include <string_view>

namespace ov::vcard {

[[nodiscard]] std::string encodeBase64(std::string_view bytes);

/// Characters that are no base64 are passed over.
[[nodiscard]] std::string decodeBase64(std::string_view text);

}  // namespace ov::vcard
