#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arena.h"

namespace ov::card {

/// A parameter with all its values, taken out of quotes and decoded.
struct Parameter {
  /// In upper case.
  std::string_view name;
  /// At least one, which may be empty.
  std::span<const std::string_view> values;
};

enum class Encoding : std::uint8_t { None, QuotedPrintable, Base64 };

/// What comes before the colon of a line.
struct Header {
  /// Empty when there is none.
  std::string_view group;
  /// In upper case.
  std::string_view name;
  /// As written, each after a semicolon.
  std::string_view rawParameters;
  /// Without those for encoding and character set; no name twice.
  std::span<const Parameter> parameters;
  Encoding encoding = Encoding::None;
  /// Empty when none is named.
  std::string_view charset;
};

/// Parses headers.
class HeaderParser {
 public:
  /// What had to be copied is in `arena`.
  explicit HeaderParser(Arena& arena) : arena_(arena) {}

  /// False when `text` is the header of no property. `header` views `text`, which is UTF-8.
  bool parse(std::string_view text, Header& header);

 private:
  /// Values of one name that are together.
  struct Run {
    std::string_view name;
    std::size_t begin;
    std::size_t end = 0;
    std::size_t place = 0;  // of the first run of that name
  };

  void takeParameter(std::string_view parameter, Header& header);
  void takeValues(std::string_view name, std::string_view values);
  void takeValue(std::string_view name, std::string_view value);
  [[nodiscard]] std::string_view decoded(std::string_view value);
  void joinParameters(Header& header);
  void joinRuns();

  Arena& arena_;
  std::vector<std::string_view> values_;
  std::vector<Run> runs_;
  std::vector<Parameter> parameters_;
};

/// Passes on the parts of a header between separators outside quotes.
template <class Use>
void forEachPart(std::string_view text, char separator, Use use) {
  bool inQuotes = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') inQuotes = !inQuotes;
    if (text[i] != separator || inQuotes) continue;
    use(text.substr(start, i - start));
    start = i + 1;
  }
  use(text.substr(start));
}

/// Looks for the colon that ends a header.
class ColonFinder {
 public:
  /// Goes on with the next line of a folded header; `npos` where it holds no colon outside quotes.
  [[nodiscard]] std::size_t find(std::string_view line);

  /// Whether all that was passed over is ASCII without NUL.
  [[nodiscard]] bool sawPlainText() const { return sawPlainText_; }

 private:
  bool inQuotes_ = false;
  bool sawPlainText_ = true;
};

/// True for words that say something about the encoding wherever they are alone.
[[nodiscard]] bool isEncodingWord(std::string_view word);

/// True for the values of ENCODING that are known.
[[nodiscard]] bool isEncodingValue(std::string_view value);

}  // namespace ov::card
