#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ovbook {

/// The lines of a text, without their line feeds and the carriage returns before these. A text
/// without a line feed is one line.
[[nodiscard]] std::vector<std::string> linesOf(std::string_view text);

}  // namespace ovbook
