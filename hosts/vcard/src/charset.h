#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ov::vcard {

struct Converted {
  std::string text;
  /// False when bytes that mean nothing in the character set had to be replaced with U+FFFD.
  bool exact = true;
};

/// The bytes as UTF-8; nothing when there is no such character set.
[[nodiscard]] std::optional<Converted> toUTF8(std::string_view bytes, std::string_view charset);

[[nodiscard]] bool isUTF8(std::string_view bytes);

/// Never fails: every byte is a character of ISO-8859-1.
[[nodiscard]] std::string latin1ToUTF8(std::string_view bytes);

/// Ill-formed parts are replaced with U+FFFD.
[[nodiscard]] std::string repairedUTF8(std::string_view bytes);

}  // namespace ov::vcard
