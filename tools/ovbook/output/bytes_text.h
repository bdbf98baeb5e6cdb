#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace ovbook {

/// Two lower-case digits a byte.
[[nodiscard]] std::string hexadecimal(std::span<const std::byte> bytes);

/// With padding, on one line.
[[nodiscard]] std::string base64(std::span<const std::byte> bytes);

}  // namespace ovbook
