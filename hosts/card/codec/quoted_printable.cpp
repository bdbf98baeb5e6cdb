#include "quoted_printable.h"

#include "ascii.h"

namespace ov::card {

namespace {

constexpr std::size_t kLongestQuotedLine = 75;

bool isQuotedAsItIs(char c) { return c >= ' ' && c <= '~' && c != '='; }

/// After a soft line break nothing may look like a blank that folds or like END:VCARD.
bool mayBeginLine(char c) { return c != ' ' && upperASCII(c) != 'B' && upperASCII(c) != 'E'; }

}  // namespace

std::string decodeQuotedPrintable(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '=' && i + 2 < text.size()) {
      const unsigned high = hexValue(text[i + 1]);
      const unsigned low = hexValue(text[i + 2]);
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

void appendQuotedPrintable(std::string& out, std::string_view bytes, std::size_t column,
                           std::string_view lineEnd) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char c = bytes[i];
    const bool breaks = column + 3 > kLongestQuotedLine;
    if (breaks) {
      out.append("=").append(lineEnd);
      column = 0;
    }
    const bool isTrailing = c == ' ' && i + 1 == bytes.size();
    if (isQuotedAsItIs(c) && !isTrailing && (!breaks || mayBeginLine(c))) {
      out += c;
      ++column;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      out.append({'=', kHexDigits[byte / 16], kHexDigits[byte % 16]});
      column += 3;
    }
  }
}

}  // namespace ov::card
