#pragma once

#include <string>
#include <string_view>

namespace ov::card {

/// The bytes behind quoted-printable text whose soft line breaks are gone. An "=" that introduces
/// no byte stands for itself.
[[nodiscard]] std::string decodeQuotedPrintable(std::string_view text);

}  // namespace ov::card
