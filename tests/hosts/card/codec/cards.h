#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "codec/card_reader.h"
#include "support/cards/card_text.h"

namespace ov::card {

/// Keeps what is reported, as "line: reason", with a "!" in front of errors.
class ProblemLog final : public Problems {
 public:
  void error(std::size_t line, std::string_view reason) override;
  void warning(std::size_t line, std::string_view reason) override;

  std::vector<std::string> texts;
};

using ::card;

/// Reads all cards of a text, and hands over each; returns the problems.
std::vector<std::string> readCards(std::string_view text,
                                   const std::function<void(const Card&)>& use);

/// Group, name, canonical parameters and canonical value of a line; " base64:" instead of ":" where
/// it is that.
std::string described(const Line& line);

/// The lines of one card, read from `lines`.
struct Lines {
  explicit Lines(std::string_view lines, std::string_view version = "4.0");

  std::vector<std::string> all;
  std::vector<std::string> texts;
  std::vector<std::size_t> numbers;
  std::vector<std::string> sources;
  std::string source;
  std::vector<std::string> problems;
};

/// Reads a card of one line without a problem, and hands it over.
void readLine(std::string_view text, const std::function<void(const Line&)>& use,
              std::string_view version = "4.0");

}  // namespace ov::card
