#pragma once

#include <string>
#include <string_view>

namespace ov::card {

/// The text as the path of a URI: every byte that is not allowed there becomes "%XX". Colons are
/// encoded when `encodeColons`.
[[nodiscard]] std::string percentEncoded(std::string_view text, bool encodeColons);

/// The decoded text; the text itself when it is not encoded so.
[[nodiscard]] std::string percentDecoded(std::string_view text);

}  // namespace ov::card
