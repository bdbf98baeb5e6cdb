#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ovbook {

/// How many columns of a terminal the text takes: two for a wide character, none for one that is
/// drawn over the character before it.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// The text, padded with blanks to `width` columns.
[[nodiscard]] std::string padded(std::string_view text, std::size_t width);

}  // namespace ovbook
