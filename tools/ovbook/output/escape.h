#pragma once

#include <string>
#include <string_view>

namespace ovbook {

/// Texts of others reach a terminal or another program only through these. Control characters, line
/// separators and the marks that turn the direction of writing around become "\n", "\t", "\r" or
/// "\u" and four hexadecimal digits. Ill-formed UTF-8 becomes U+FFFD.

/// For people: a backslash is itself.
[[nodiscard]] std::string printable(std::string_view text);

/// For programs that read fields apart by tabs: a backslash is doubled, so that every text can be
/// had back.
[[nodiscard]] std::string tsvField(std::string_view text);

/// In double quotes, as a JSON string.
[[nodiscard]] std::string quoted(std::string_view text);

}  // namespace ovbook
