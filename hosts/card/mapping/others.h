#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "codec/card_reader.h"
#include "reading.h"

namespace ov::card {

/// What an entry of "Other" that keeps a line has as the name of its label: the line's name and
/// parameters.
[[nodiscard]] std::string lineNameOf(const Line& line);
/// What it has as datum: the line's value.
[[nodiscard]] std::string keptValueOf(const Line& line);

/// The lines of a text that was written as a card.
class CardText {
 public:
  explicit CardText(std::string text);
  /// Null when there is none.
  [[nodiscard]] const Card* card() const { return card_; }
  [[nodiscard]] const Lines& lines() const;

 private:
  std::string text_;
  std::unique_ptr<CardReader> reader_;
  const Card* card_ = nullptr;
};

/// The entry of "Other" that keeps odd lines: what the values do not say about the card that they
/// came from. Its datum is a card of these lines alone.
/// @{
[[nodiscard]] OVRef<OVSingleValue> oddLinesEntry(const OVString& text);
/// Whether the entry is one. No line that is read as an entry of "Other" becomes one.
[[nodiscard]] bool isOddLinesEntry(const OVSingleValue& entry);
/// @}

/// Whether the entry has the label and the datum of a line that is kept verbatim.
[[nodiscard]] bool isLineEntry(const OVSingleValue& entry);
/// The spelling of an entry of "Other" that is a line.
[[nodiscard]] Spelling spellingOfOther(const Line& line, const OVSingleValue& entry);

/// Says which entries of "Other" are lines. An entry is written as the line of its name unless that
/// would be read as something else.
class OtherLines {
 public:
  OtherLines(const Entries& others, const PersonValues& values, bool hasID);
  /// Null for an entry that is not a line.
  [[nodiscard]] const Line* lineOf(std::size_t entry) const { return lines_[entry]; }

 private:
  [[nodiscard]] bool isLineOf(const Line& line, const OVSingleValue& entry) const;

  const PersonValues& values_;
  bool hasID_;
  std::vector<std::unique_ptr<CardText>> cards_;
  std::vector<const Line*> lines_;
};

}  // namespace ov::card
