#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ov::card {

[[nodiscard]] bool isASCII(std::string_view bytes);
[[nodiscard]] bool isUTF8(std::string_view bytes);

/// Never fails: what is UTF-8 stays, every other byte is a character of Windows-1252.
[[nodiscard]] std::string guessedUTF8(std::string_view bytes);

struct Converted {
  std::string text;
  /// False when bytes that mean nothing in the character set had to be replaced with U+FFFD.
  bool exact = true;
};

/// UTF-16 without a byte-order mark; each surrogate without its other half costs one character.
[[nodiscard]] Converted utf16ToUTF8(std::string_view bytes, bool bigEndian);

/// Converts from character sets by name. To open a converter is slow: all are kept.
class Charsets {
 public:
  /// Nothing when there is no such character set. ISO-8859-1 is taken for Windows-1252, which holds
  /// it but for control characters.
  [[nodiscard]] std::optional<Converted> toUTF8(std::string_view bytes, std::string_view charset);

 private:
  struct Close {
    void operator()(void* converter) const;
  };
  using Converter = std::unique_ptr<void, Close>;

  [[nodiscard]] void* converterFor(std::string_view charset);

  std::map<std::string, Converter> converters_;  // by names in upper case
};

}  // namespace ov::card
