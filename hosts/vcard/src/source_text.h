#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ov::vcard {

/// The bytes of a file without a byte-order mark; UTF-16 with one becomes UTF-8.
[[nodiscard]] std::string withoutByteOrderMark(std::string bytes);

/// One line as it stands in a file, without its end.
struct SourceLine {
  std::string_view text;
  std::size_t number = 0;
};

/// Walks the lines of a text, ended by CR LF, LF or CR.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : text_(text) {}

  /// False at the end.
  bool next(SourceLine& line);

  /// How many bytes have been read.
  [[nodiscard]] std::size_t offset() const { return offset_; }

 private:
  std::string_view text_;
  std::size_t offset_ = 0;
  std::size_t number_ = 0;
};

}  // namespace ov::vcard
