#include "output/code_points.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace ovbook {

char32_t takeCodePoint(std::string_view& text) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  const auto ones = static_cast<std::size_t>(std::countl_one(lead));
  const std::size_t length = std::min(std::max<std::size_t>(ones, 1), text.size());
  char32_t codePoint = lead & (0xFFU >> std::min<std::size_t>(ones + 1, 8));
  for (const char byte : text.substr(1, length - 1)) {
    codePoint = codePoint << 6 | (static_cast<std::uint8_t>(byte) & 0x3FU);
  }
  text.remove_prefix(length);
  return codePoint;
}

}  // namespace ovbook
