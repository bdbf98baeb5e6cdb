#include "output/escape.h"

#include <OVAddressBookSDK/text.h>

#include "output/code_points.h"

namespace ovbook {

namespace {

bool isUnsafe(char32_t c) {
  const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
  const bool isLineSeparator = c == 0x2028 || c == 0x2029;
  const bool turnsDirection = (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
  return isControl || isLineSeparator || turnsDirection;
}

/// Every unsafe character has a number of four digits.
void appendNumber(std::string& out, char32_t c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  out += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[(c >> shift) & 0xFU];
}

void appendUnsafe(std::string& out, char32_t c) {
  switch (c) {
    case '\n':
      out += "\\n";
      break;
    case '\t':
      out += "\\t";
      break;
    case '\r':
      out += "\\r";
      break;
    default:
      appendNumber(out, c);
  }
}

/// Puts a backslash before each of `marked`.
std::string escaped(std::string_view raw, std::string_view marked) {
  const OVString repaired(raw);
  std::string_view text = repaired;
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t c = takeCodePoint(text);
    if (isUnsafe(c)) {
      appendUnsafe(out, c);
    } else {
      if (c < 0x80 && marked.find(static_cast<char>(c)) != std::string_view::npos) out += '\\';
      out += before.substr(0, before.size() - text.size());
    }
  }
  return out;
}

}  // namespace

std::string printable(std::string_view text) { return escaped(text, ""); }

std::string tsvField(std::string_view text) { return escaped(text, "\\"); }

std::string quoted(std::string_view text) { return '"' + escaped(text, "\"\\") + '"'; }

}  // namespace ovbook
