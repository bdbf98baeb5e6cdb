#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "card.h"
#include "charset.h"
#include "line_reader.h"
#include "problems.h"
#include "text_lines.h"

namespace ov::card {

/// Finds the cards in a text, one by one. A card without END:VCARD ends where the next one begins;
/// a card inside another as the value of AGENT belongs to that line.
///
/// Time is linear in the size of the text, memory in that of the largest card.
class CardReader {
 public:
  /// Both must live as long as the reader.
  CardReader(std::string_view text, Problems& problems);
  CardReader(const CardReader&) = delete;
  CardReader& operator=(const CardReader&) = delete;
  ~CardReader() = default;

  /// The next card, which lives until the next call and not longer than text and reader; null when
  /// there is none.
  [[nodiscard]] const Card* next();

  /// How many bytes have been read.
  [[nodiscard]] std::size_t offset() const { return cursor_.offset(); }

 private:
  bool findBegin();
  void readCard();
  void readLines();
  void endCard();
  /// Marks a line that is not just ASCII or UTF-8 unfolded and decoded.
  void markEncoded(Line& line, const LineReader::Notes& notes, bool isUTF8);
  void decode(Line& line);
  [[nodiscard]] bool holdsUTF8(const Line& line) const;
  [[nodiscard]] std::string inUTF8(std::string bytes, std::string_view charset, std::size_t line);
  void respell();
  [[nodiscard]] std::string respelled(const Line& line) const;

  std::string_view text_;
  bool hasNUL_;
  Problems& problems_;
  Cursor cursor_;
  CardContext context_;
  LineReader lineReader_;
  Charsets charsets_;
  std::optional<Card> card_;
  std::size_t open_ = 0;  // cards that have begun and not ended
  bool hasEncoded_ = false;
  std::vector<std::string_view> charsetNames_;  // that lines of the card name, one for each line
  bool isRespelled_ = false;
  std::string source_;  // of a card that is spelled again
  std::string rest_;
};

}  // namespace ov::card
