#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ov::card {

/// The bytes of quoted-printable text whose soft line breaks are gone. An "=" that introduces no
/// byte is written as itself.
[[nodiscard]] std::string decodeQuotedPrintable(std::string_view text);

/// Appends the bytes to a line of the length `column`, broken where it becomes too long. No line
/// then looks like the beginning or the end of a card.
void appendQuotedPrintable(std::string& out, std::string_view bytes, std::size_t column,
                           std::string_view lineEnd);

}  // namespace ov::card
