#pragma once

#include <string>
#include <string_view>

#include "header.h"
#include "line.h"
#include "problems.h"
#include "text_lines.h"

namespace ov::card {

/// Reads one property at a time, however many lines of the text it takes.
class LineReader {
 public:
  LineReader(Cursor& cursor, CardContext& context, Problems& problems)
      : cursor_(cursor), context_(context), problems_(problems), parser_(context.arena) {}

  /// What the line itself does not say.
  struct Notes {
    /// Empty when none is named.
    std::string_view charset;
    /// Whether the header came as UTF-8.
    bool hasPlainHeader = true;
  };

  /// Reads the property that begins at the cursor, which is not at a marker. False, after a
  /// message, when there is none: `line` then is the text that was passed over.
  bool read(Line& line, Notes& notes);

 private:
  bool readHeader(Header& header, Notes& notes);
  bool parseRepaired(const TextLine& first, std::string_view text, bool quotesPair, Header& header,
                     Notes& notes);
  void takeValue(Line& line);
  void takeContinuations();
  void takeQuotedPrintable();
  [[nodiscard]] bool takeBase64();
  void takeCard(Line& line);
  void take();
  /// From `begin` to the end of the line taken last, without its end.
  [[nodiscard]] std::string_view textFrom(const char* begin) const;

  Cursor& cursor_;
  CardContext& context_;
  Problems& problems_;
  HeaderParser parser_;
  TextLine last_;                // the line taken last
  const char* value_ = nullptr;  // what follows the colon of the header read last
};

}  // namespace ov::card
