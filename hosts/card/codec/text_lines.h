#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ov::card {

/// One line as written in a text.
struct TextLine {
  /// Without its end.
  std::string_view text;
  /// Its end; empty at the end of a text that lacks one.
  std::string_view end;
  /// Counted from 1.
  std::size_t number = 0;
};

/// Walks the lines of a text, ended by CR LF, LF, CR, or the CR CR LF of files that were converted
/// once too often.
class TextLines {
 public:
  explicit TextLines(std::string_view text) : text_(text) {}

  /// False at the end.
  bool next(TextLine& line);

  /// How many bytes have been read.
  [[nodiscard]] std::size_t offset() const { return offset_; }

 private:
  /// Where a character comes next: many texts have no CR, some no LF, and are searched once.
  struct Next {
    std::size_t find(std::string_view text, std::size_t from);

    char c;
    std::optional<std::size_t> place;
  };

  std::string_view text_;
  std::size_t offset_ = 0;
  std::size_t number_ = 0;
  Next lineFeed_{'\n', {}};
  Next return_{'\r', {}};
};

/// The text with each continuation line joined to the one before it. `blanks` is how many blanks
/// of a continuation line go.
[[nodiscard]] std::string unfolded(std::string_view text, std::size_t blanks);

/// The lines that begin and end a card.
enum class Marker : std::uint8_t { None, Begin, End };

/// BEGIN:VCARD and END:VCARD in any case of letters.
[[nodiscard]] Marker markerOf(std::string_view line);

/// The lines of a text with a look at the one that comes next.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : lines_(text) { advance(); }

  [[nodiscard]] bool atEnd() const { return atEnd_; }
  /// The next line; at the end without meaning, as all of it.
  [[nodiscard]] const TextLine& line() const { return line_; }
  [[nodiscard]] Marker marker() const { return marker_; }
  /// Whether the next line continues the one before it.
  [[nodiscard]] bool isContinuation() const;
  /// Whether it holds nothing but blanks.
  [[nodiscard]] bool isEmpty() const;
  /// How many bytes precede the next line.
  [[nodiscard]] std::size_t offset() const { return offset_; }
  void advance();

 private:
  TextLines lines_;
  TextLine line_;
  std::size_t offset_ = 0;
  Marker marker_ = Marker::None;
  bool atEnd_ = false;
};

}  // namespace ov::card
