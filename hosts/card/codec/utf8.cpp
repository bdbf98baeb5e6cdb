// Checks and repairs texts: what is not UTF-8 is read as Windows-1252.

#include "utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace ov::card {

namespace {

/// What Windows-1252 has for 0x80 to 0x9F; zero where it has nothing.
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void append(char32_t c, std::string& text) {
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | ((c >> shift) & 0x3FU));
  };
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0U | (c >> 6U));
    tail(0);
  } else if (c < 0x10000) {
    text += static_cast<char>(0xE0U | (c >> 12U));
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | (c >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

/// How many bytes the character in front takes; 0 when there is none.
std::size_t characterSize(std::string_view bytes) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned first = at(0);
  if (first < 0x80) return 1;
  const std::size_t size = first < 0xC2   ? 0
                           : first < 0xE0 ? 2
                           : first < 0xF0 ? 3
                           : first < 0xF5 ? 4
                                          : 0;
  if (size == 0 || bytes.size() < size) return 0;
  // Overlong forms, surrogates, and what is beyond U+10FFFF show in the second byte.
  const unsigned low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  const unsigned high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  if (at(1) < low || at(1) > high) return 0;
  for (std::size_t i = 2; i < size; ++i) {
    if ((at(i) & 0xC0U) != 0x80) return 0;
  }
  return size;
}

/// How many bytes in front are ASCII: they are most, and looked at in steps of eight.
std::size_t asciiSize(std::string_view bytes) {
  std::size_t size = 0;
  for (std::uint64_t word = 0; size + sizeof word <= bytes.size(); size += sizeof word) {
    std::memcpy(&word, bytes.data() + size, sizeof word);
    if ((word & 0x8080808080808080U) != 0) break;
  }
  while (size < bytes.size() && static_cast<unsigned char>(bytes[size]) < 0x80) ++size;
  return size;
}

}  // namespace

std::string windows1252ToUTF8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool isSpecial = byte >= 0x80 && byte < 0xA0 && kWindows1252[byte - 0x80U] != 0;
    append(isSpecial ? kWindows1252[byte - 0x80U] : byte, text);
  }
  return text;
}

bool isASCII(std::string_view bytes) { return asciiSize(bytes) == bytes.size(); }

bool isUTF8(std::string_view bytes) {
  for (;;) {
    bytes.remove_prefix(asciiSize(bytes));
    if (bytes.empty()) return true;
    const std::size_t size = characterSize(bytes);
    if (size == 0) return false;
    bytes.remove_prefix(size);
  }
}

std::string guessedUTF8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  while (!bytes.empty()) {
    const std::size_t size = characterSize(bytes);
    if (size == 0) {
      text += windows1252ToUTF8(bytes.substr(0, 1));
    } else {
      text += bytes.substr(0, size);
    }
    bytes.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return text;
}

Converted utf16ToUTF8(std::string_view bytes, bool bigEndian) {
  Converted result;
  result.text.reserve(bytes.size() / 2 + bytes.size() / 8);
  const auto unit = [&](std::size_t at) -> char32_t {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return bigEndian ? first * 256U + second : second * 256U + first;
  };
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    char32_t c = at + 1 < bytes.size() ? unit(at) : 0xDC00;
    const bool isHigh = c >= 0xD800 && c < 0xDC00;
    const char32_t low = isHigh && at + 3 < bytes.size() ? unit(at + 2) : 0;
    if (low >= 0xDC00 && low < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10U) + (low - 0xDC00);
      at += 2;
    } else if (c >= 0xD800 && c < 0xE000) {
      c = 0xFFFD;
      result.exact = false;
    }
    append(c, result.text);
  }
  return result;
}

}  // namespace ov::card
