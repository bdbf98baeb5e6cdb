#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "problem_list.h"
#include "source_text.h"

namespace ov::vcard {

/// A line of a card, or of a card inside a card.
struct CardLine {
  std::string_view text;
  std::size_t number = 0;
  /// True for the lines of a card that stands inside this one, as the value of AGENT.
  bool nested = false;
};

/// The lines between BEGIN:VCARD and END:VCARD.
struct CardText {
  /// Where BEGIN:VCARD stands.
  std::size_t number = 0;
  std::vector<CardLine> lines;
};

/// Finds the cards in a text. A card without END:VCARD ends where the next one begins.
class CardSplitter {
 public:
  CardSplitter(std::string_view text, ProblemList& problems) : reader_(text), problems_(problems) {}

  /// False when there are no more cards.
  bool next(CardText& card);

  /// How many bytes have been read.
  [[nodiscard]] std::size_t offset() const { return reader_.offset(); }

 private:
  bool findBegin(CardText& card);
  void readCard(CardText& card);

  LineReader reader_;
  ProblemList& problems_;
  SourceLine begin_;  // of the next card, when the one before it had no end
};

}  // namespace ov::vcard
