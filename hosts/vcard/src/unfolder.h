#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "card_splitter.h"

namespace ov::vcard {

/// A property as it stands in the file, its continuation lines joined.
struct UnfoldedLine {
  std::size_t number = 0;
  std::string text;
  /// The card that follows an AGENT line.
  std::string nestedCard;
};

/// Joins the lines of a card into properties.
class Unfolder {
 public:
  /// `keepBlanks`: the blank that begins a continuation line belongs to the text (vCard 2.1).
  Unfolder(const CardText& card, bool keepBlanks) : lines_(card.lines), keepBlanks_(keepBlanks) {}

  /// Nothing at the end.
  std::optional<UnfoldedLine> next();

  /// Appends the lines after the one just read for as long as they hold nothing but base64.
  void appendBase64(std::string& value);

 private:
  [[nodiscard]] bool atContinuation() const;
  void takeContinuations(std::string& text);
  void takeNestedCard(UnfoldedLine& line);

  const std::vector<CardLine>& lines_;
  bool keepBlanks_;
  std::size_t at_ = 0;
};

}  // namespace ov::vcard
