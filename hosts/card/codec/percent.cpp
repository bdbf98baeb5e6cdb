#include "percent.h"

#include "ascii.h"
#include "utf8.h"

namespace ov::card {

namespace {

bool standsAsItIs(char c) {
  return isAlphanumeric(c) || std::string_view("-._~@+/=!$&'()*").find(c) != std::string_view::npos;
}

}  // namespace

std::string percentEncoded(std::string_view text, bool encodeColons) {
  std::string encoded;
  for (const char c : text) {
    if (standsAsItIs(c) || (c == ':' && !encodeColons)) {
      encoded += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      encoded += '%';
      encoded += kHexDigits[byte / 16];
      encoded += kHexDigits[byte % 16];
    }
  }
  return encoded;
}

std::string percentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      decoded += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::string(text);
    const unsigned high = hexValue(text[i + 1]);
    const unsigned low = hexValue(text[i + 2]);
    if (high > 15 || low > 15) return std::string(text);
    decoded += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return isUTF8(decoded) ? decoded : std::string(text);
}

}  // namespace ov::card
