#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "card.h"
#include "problems.h"

namespace ov::card {

/// The bytes of a file as text for a `CardReader`: byte-order marks go, UTF-16 becomes UTF-8. What
/// is no UTF-16 becomes U+FFFD, and is reported.
[[nodiscard]] std::string textOfFile(std::string bytes, Problems& problems);

/// Finds the cards in a text, one after the other. A card without END:VCARD ends where the next one
/// begins; a card that stands inside another as the value of AGENT belongs to that line.
///
/// Time is linear in the size of the text, memory in that of the largest card.
class CardReader {
 public:
  /// Both must live as long as the reader.
  CardReader(std::string_view text, Problems& problems);
  ~CardReader();
  CardReader(const CardReader&) = delete;
  CardReader& operator=(const CardReader&) = delete;

  /// The next card, which lives until the next call; null when there is none.
  [[nodiscard]] const Card* next();

  /// How many bytes have been read.
  [[nodiscard]] std::size_t offset() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace ov::card
