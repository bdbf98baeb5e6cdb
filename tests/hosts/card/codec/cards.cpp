#include "hosts/card/codec/cards.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "codec/parameters.h"

namespace ov::card {

void ProblemLog::error(std::size_t line, std::string_view reason) {
  texts.push_back("!" + std::to_string(line) + ": " + std::string(reason));
}

void ProblemLog::warning(std::size_t line, std::string_view reason) {
  texts.push_back(std::to_string(line) + ": " + std::string(reason));
}

std::vector<std::string> readCards(std::string_view text,
                                   const std::function<void(const Card&)>& use) {
  ProblemLog problems;
  CardReader reader(text, problems);
  while (const Card* const card = reader.next()) use(*card);
  EXPECT_EQ(reader.offset(), text.size());
  return problems.texts;
}

std::string described(const Line& line) {
  std::string text = line.group().empty() ? "" : std::string(line.group()) + ".";
  text.append(line.name()).append(canonicalParameters(line));
  return text.append(line.isBase64() ? " base64:" : ":").append(line.value());
}

Lines::Lines(std::string_view lines, std::string_view version) {
  const std::string text = card(lines, version);
  int count = 0;
  problems = readCards(text, [&](const Card& card) {
    ++count;
    source = card.source;
    for (const Line& line : card.lines) {
      all.push_back(described(line));
      texts.emplace_back(line.text());
      numbers.push_back(line.number());
      sources.emplace_back(line.source());
    }
  });
  EXPECT_EQ(count, 1);
}

void readLine(std::string_view text, const std::function<void(const Line&)>& use,
              std::string_view version) {
  std::size_t count = 0;
  const auto problems = readCards(card(text, version), [&](const Card& card) {
    count += card.lines.size();
    for (const Line& line : card.lines) use(line);
  });
  EXPECT_EQ(count, 1U);
  EXPECT_THAT(problems, testing::IsEmpty());
}

}  // namespace ov::card
