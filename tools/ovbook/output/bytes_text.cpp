#include "output/bytes_text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace ovbook {

std::string hexadecimal(std::span<const std::byte> bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const std::byte byte : bytes) {
    text += kDigits[std::to_integer<std::size_t>(byte >> 4)];
    text += kDigits[std::to_integer<std::size_t>(byte & std::byte{0x0F})];
  }
  return text;
}

std::string base64(std::span<const std::byte> bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  while (!bytes.empty()) {
    const auto group = bytes.first(std::min<std::size_t>(bytes.size(), 3));
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      bits = bits << 8 | (i < group.size() ? std::to_integer<std::uint32_t>(group[i]) : 0U);
    }
    for (std::size_t i = 0; i < 4; ++i) {
      text += i <= group.size() ? kDigits[bits >> (18 - 6 * i) & 0x3F] : '=';
    }
    bytes = bytes.subspan(group.size());
  }
  return text;
}

}  // namespace ovbook
