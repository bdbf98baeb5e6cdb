#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "card_splitter.h"
#include "problem_list.h"

namespace ov::vcard {

/// One property of a card as text in UTF-8, whatever version and character set it came in.
struct ContentLine {
  std::size_t number = 0;
  std::string group;
  /// In upper case.
  std::string name;
  /// Each behind a semicolon; they say nothing of encoding and character set.
  std::string parameters;
  /// Whether the value is base64.
  bool base64 = false;
  /// Canonical (see escapes.h), or base64 without blanks.
  std::string value;
};

/// The properties of a card, VERSION left out: unfolded, decoded, and converted to UTF-8.
[[nodiscard]] std::vector<ContentLine> contentLines(const CardText& card, ProblemList& problems);

}  // namespace ov::vcard
