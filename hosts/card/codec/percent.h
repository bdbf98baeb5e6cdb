#pragma once

#include <string>
#include <string_view>

namespace ov::card {

/// The text as the path of a URI: every byte that may not stand there as it is becomes "%XX".
/// Colons are encoded when `encodeColons`.
[[nodiscard]] std::string percentEncoded(std::string_view text, bool encodeColons);

/// The text behind it; the text as it stands when it is not so encoded.
[[nodiscard]] std::string percentDecoded(std::string_view text);

}  // namespace ov::card
