#pragma once

#include <string>
#include <string_view>

namespace ov::card {

[[nodiscard]] bool isASCII(std::string_view bytes);
[[nodiscard]] bool isUTF8(std::string_view bytes);

/// Never fails: what is UTF-8 stays, every other byte is a character of Windows-1252.
[[nodiscard]] std::string guessedUTF8(std::string_view bytes);

[[nodiscard]] std::string windows1252ToUTF8(std::string_view bytes);

struct Converted {
  std::string text;
  /// False when bytes that mean nothing in the character set had to be replaced with U+FFFD.
  bool exact = true;
};

/// UTF-16 without a byte-order mark; each surrogate without its other half costs one character.
[[nodiscard]] Converted utf16ToUTF8(std::string_view bytes, bool bigEndian);

}  // namespace ov::card
