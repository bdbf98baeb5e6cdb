#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace ov::card {

[[nodiscard]] constexpr char upperASCII(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

[[nodiscard]] constexpr char lowerASCII(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] inline std::string upperASCII(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = upperASCII(c);
  return upper;
}

[[nodiscard]] inline std::string lowerASCII(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = lowerASCII(c);
  return lower;
}

[[nodiscard]] constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

[[nodiscard]] constexpr bool isAlphanumeric(char c) {
  return isDigit(c) || (lowerASCII(c) >= 'a' && lowerASCII(c) <= 'z');
}

inline constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// 16 for a character that is not a hexadecimal digit.
[[nodiscard]] constexpr unsigned hexValue(char c) {
  if (isDigit(c)) return static_cast<unsigned>(c - '0');
  const char upper = upperASCII(c);
  return upper >= 'A' && upper <= 'F' ? static_cast<unsigned>(upper - 'A' + 10) : 16;
}

[[nodiscard]] constexpr bool isBlank(char c) { return c == ' ' || c == '\t'; }

/// Equality of words in which the case of A to Z does not matter.
[[nodiscard]] constexpr bool sameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return upperASCII(x) == upperASCII(y); });
}

[[nodiscard]] constexpr bool startsWithWord(std::string_view text, std::string_view word) {
  return text.size() >= word.size() && sameWord(text.substr(0, word.size()), word);
}

[[nodiscard]] constexpr std::string_view trimEnd(std::string_view text) {
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

[[nodiscard]] constexpr std::string_view trim(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  return trimEnd(text);
}

/// A name that vCards use for properties, parameters and simple parameter values.
[[nodiscard]] constexpr bool isToken(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return isAlphanumeric(c) || c == '-' || c == '_';
  });
}

/// A name of a property: some programs put a slash into theirs.
[[nodiscard]] constexpr bool isPropertyName(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return isAlphanumeric(c) || c == '-' || c == '_' || c == '/';
  });
}

}  // namespace ov::card
