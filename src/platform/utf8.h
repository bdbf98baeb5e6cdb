#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ov::detail {

/// Length of the longest well-formed prefix.
[[nodiscard]] std::size_t wellFormedPrefix(std::string_view text);

/// The text with every ill-formed part replaced by one U+FFFD, as web browsers do.
[[nodiscard]] std::string repaired(std::string_view text);

/// Appends the code point as UTF-8. A surrogate or a number past U+10FFFF is written as U+FFFD.
void appendUtf8(std::string& text, char32_t codePoint);

/// True when every byte is below 0x80.
[[nodiscard]] bool isAscii(std::string_view text);

/// A code point of well-formed text, and how many bytes it takes.
struct CodePoint {
  char32_t value;
  std::size_t length;
};
/// The code point at the start of `text`, which must be well-formed and not empty.
[[nodiscard]] CodePoint firstCodePoint(std::string_view text);

}  // namespace ov::detail
