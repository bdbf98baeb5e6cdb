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
  /// The parameters that do not speak of the encoding, as they stand, each behind a semicolon.
  std::string parameters;
  Encoding encoding = Encoding::None;
  /// Empty when none is named.
  std::string charset;
};

/// The position of the colon that ends the header of a line; `npos` when there is none.
[[nodiscard]] std::size_t endOfHeader(std::string_view line);

/// False when `text` is no header. `header` then has no meaning.
[[nodiscard]] bool parseHeader(std::string_view text, LineHeader& header);

}  // namespace ov::vcard
