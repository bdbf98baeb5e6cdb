#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ov::vcard {

enum class Encoding { None, QuotedPrintable, Base64 };

/// What stands before the colon of a line.
struct LineHeader {
  std::string group;
  /// In upper case.
  std::string name;
  /// The parameters that do not speak of the encoding, each behind a semicolon. All have a name,
  /// and values are spelled by `parameterSpelling`.
  std::string parameters;
  Encoding encoding = Encoding::None;
  /// Empty when none is named.
  std::string charset;
};

/// The parameter value, which holds no quotes, in quotes unless it is a simple word.
[[nodiscard]] std::string parameterSpelling(std::string_view value);

/// The position of the colon that ends the header of a line; `npos` when there is none.
[[nodiscard]] std::size_t endOfHeader(std::string_view line);

/// False when `text` is no header. `header` then has no meaning.
[[nodiscard]] bool parseHeader(std::string_view text, LineHeader& header);

}  // namespace ov::vcard
