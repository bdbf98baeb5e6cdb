#include "quoted_printable.h"

#include <cstdint>

#include "ascii.h"

namespace ov::card {

namespace {

/// 16 for a character that is no hexadecimal digit.
unsigned hexDigit(char c) {
  if (isDigit(c)) return static_cast<unsigned>(c - '0');
  const char lower = lowerASCII(c);
  return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a' + 10) : 16;
}

}  // namespace

std::string decodeQuotedPrintable(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '=' && i + 2 < text.size()) {
      const unsigned high = hexDigit(text[i + 1]);
      const unsigned low = hexDigit(text[i + 2]);
      if (high < 16 && low < 16) {
        bytes += static_cast<char>(high * 16 + low);
        i += 2;
        continue;
      }
    }
    bytes += text[i];
  }
  return bytes;
}

}  // namespace ov::card
