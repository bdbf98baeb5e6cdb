#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ov::card {

/// How the backslash works in the values of a card.
enum class Escaping {
  /// vCard 2.1: the backslash quotes a semicolon; a comma is an ordinary character.
  Old,
  /// vCard 3.0 and 4.0.
  New,
};

/// The value with backslashes only where vCard 4.0 knows them: `\\`, `\;`, `\,` and `\n`. Line
/// breaks become `\n`, other uses of the backslash a literal one; NUL becomes U+FFFD. `listCommas`
/// says that in old values commas separate the members of a list.
[[nodiscard]] std::string canonicalValue(std::string_view value, Escaping escaping,
                                         bool listCommas = false);

/// The canonical value as vCard 2.1 spells it, with line breaks, and with no more backslashes than
/// it needs. The way back is `canonicalValue`.
[[nodiscard]] std::string valueOf21(std::string_view value, bool listCommas = false);

/// The text as one canonical value.
[[nodiscard]] std::string escapeText(std::string_view text);

/// The text as a canonical value of a property that holds a URI: commas and semicolons stay.
[[nodiscard]] std::string escapeURI(std::string_view text);

/// The text of a canonical value.
[[nodiscard]] std::string unescape(std::string_view value);

/// The parts of a canonical value between separators that no backslash quotes, still escaped.
[[nodiscard]] std::vector<std::string_view> splitValue(std::string_view value, char separator);

/// The canonical value with its unquoted separators quoted.
[[nodiscard]] std::string quoteSeparators(std::string_view value, std::string_view separators);

}  // namespace ov::card
