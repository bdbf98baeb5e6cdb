#pragma once

#include <string_view>

namespace ovbook {

/// Takes the first code point off a text of well-formed UTF-8 that is not empty.
char32_t takeCodePoint(std::string_view& text);

}  // namespace ovbook
