#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace ov {

/// Codes and identifiers are ASCII: the case of their letters is the same in every language, and
/// all other characters stay as they are.
/// @{
constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
constexpr char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

inline std::string asciiLower(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](char c) { return asciiLower(c); });
  return lower;
}
inline std::string asciiUpper(std::string_view text) {
  std::string upper(text);
  std::ranges::transform(upper, upper.begin(), [](char c) { return asciiUpper(c); });
  return upper;
}
/// @}

constexpr bool isASCIIDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isASCIILetter(char c) { return asciiLower(c) >= 'a' && asciiLower(c) <= 'z'; }

}  // namespace ov
