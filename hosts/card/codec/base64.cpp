#include "base64.h"

#include <array>
#include <cstdint>

namespace ov::card {

namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNone = 64;
constexpr std::uint8_t kPadding = 65;

constexpr auto kValues = []() {
  std::array<std::uint8_t, 256> values{};
  values.fill(kNone);
  for (std::size_t i = 0; i < kDigits.size(); ++i) {
    values[static_cast<unsigned char>(kDigits[i])] = static_cast<std::uint8_t>(i);
  }
  values['='] = kPadding;
  return values;
}();

char byteOf(unsigned bits) { return static_cast<char>(bits & 0xFFU); }

}  // namespace

std::string encodeBase64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t size = std::min<std::size_t>(bytes.size() - i, 3);
    unsigned bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8U | (k < size ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += k > size ? '=' : kDigits[bits >> (18U - 6U * k) & 0x3FU];
    }
  }
  return text;
}

std::string decodeBase64(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3 + 3);
  unsigned bits = 0;
  unsigned count = 0;
  const auto flush = [&] {
    if (count > 1) bytes += byteOf(bits >> (count == 2 ? 4U : 10U));
    if (count > 2) bytes += byteOf(bits >> 2U);
    count = 0;
    bits = 0;
  };
  for (const char c : text) {
    const std::uint8_t value = kValues[static_cast<unsigned char>(c)];
    if (value == kPadding) flush();
    if (value >= kNone) continue;
    bits = bits << 6U | value;
    if (++count < 4) continue;
    bytes += byteOf(bits >> 16U);
    bytes += byteOf(bits >> 8U);
    bytes += byteOf(bits);
    count = 0;
    bits = 0;
  }
  flush();
  return bytes;
}

}  // namespace ov::card
