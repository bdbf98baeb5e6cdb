#pragma once

#include <string>
#include <string_view>

#include "ascii.h"

namespace ov::card {

/// True for what base64 consists of, its padding included.
[[nodiscard]] constexpr bool isBase64Digit(char c) {
  return isAlphanumeric(c) || c == '+' || c == '/' || c == '=';
}

[[nodiscard]] std::string encodeBase64(std::string_view bytes);

/// Characters that are not base64 are skipped.
[[nodiscard]] std::string decodeBase64(std::string_view text);

}  // namespace ov::card
