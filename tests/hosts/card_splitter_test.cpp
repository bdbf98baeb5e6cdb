#include "card_splitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ov::vcard {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Split {
  explicit Split(std::string_view text) {
    ProblemList list("cards.vcf", found);
    CardSplitter splitter(text, list);
    for (CardText card; splitter.next(card);) {
      std::string lines = std::to_string(card.number) + ":";
      for (const CardLine& line : card.lines) {
        lines.append(line.nested ? " >" : " ").append(line.text);
      }
      cards.push_back(lines);
    }
    for (const OVVCardProblem& problem : found) {
      EXPECT_EQ(problem.file, "cards.vcf");
      EXPECT_EQ(problem.severity, OVVCardSeverity::Error);
      problems.push_back(std::to_string(problem.line) + ": " + problem.reason.str());
    }
  }

  std::vector<OVVCardProblem> found;
  std::vector<std::string> cards;
  std::vector<std::string> problems;
};

TEST(CardSplitter, FindsCardsWithTheirLines) {
  const Split split("BEGIN:VCARD\r\nFN:a\r\nEND:VCARD\r\n\r\nbegin : vcard \nFN:b\nEnd:vCard");
  EXPECT_THAT(split.cards, ElementsAre("1: FN:a", "5: FN:b"));
  EXPECT_THAT(split.problems, IsEmpty());
}

TEST(CardSplitter, AnEmptyTextHasNoCards) {
  for (const char* text : {"", "\n\n  \n"}) {
    const Split split(text);
    EXPECT_THAT(split.cards, IsEmpty());
    EXPECT_THAT(split.problems, IsEmpty());
  }
}

TEST(CardSplitter, ReportsTextBetweenCardsOnceEach) {
  const Split split(
      "junk\nmore\nBEGIN:VCARD\nFN:a\nEND:VCARD\n\njunk\n\nagain\nBEGIN:VCARD\nFN:b\nEND:VCARD\n"
      "END:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("3: FN:a", "10: FN:b"));
  EXPECT_THAT(split.problems, ElementsAre("1: this text stands outside of any card",
                                          "7: this text stands outside of any card",
                                          "13: this text stands outside of any card"));
}

TEST(CardSplitter, ACardWithoutEndEndsWhereTheNextBegins) {
  const Split split("BEGIN:VCARD\nFN:a\nBEGIN:VCARD\nFN:b\n");
  EXPECT_THAT(split.cards, ElementsAre("1: FN:a", "3: FN:b"));
  EXPECT_THAT(split.problems,
              ElementsAre("1: this card has no END:VCARD; what it holds was taken over",
                          "3: this card has no END:VCARD; what it holds was taken over"));
}

TEST(CardSplitter, KeepsTheCardOfAnAgentInside) {
  const Split split(
      "BEGIN:VCARD\nitem1.agent;X=y:\nBEGIN:VCARD\nFN:b\nAGENT:\nBEGIN:VCARD\nFN:c\nEND:VCARD\n"
      "END:VCARD\nFN:a\nEND:VCARD\n");
  EXPECT_THAT(split.cards,
              ElementsAre("1: item1.agent;X=y: >BEGIN:VCARD >FN:b >AGENT: >BEGIN:VCARD >FN:c "
                          ">END:VCARD >END:VCARD FN:a"));
  EXPECT_THAT(split.problems, IsEmpty());
}

TEST(CardSplitter, AnAgentMayBeginOnItsOwnLine) {
  const Split split("BEGIN:VCARD\nAGENT:BEGIN:VCARD\nFN:b\nEND:VCARD\nFN:a\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: AGENT:BEGIN:VCARD >FN:b >END:VCARD FN:a"));
}

TEST(CardSplitter, AFoldedAgentIsOneLine) {
  const Split split("BEGIN:VCARD\nAGENT:BEGIN:VCARD\n \\nFN:b\\nEND:VCARD\nFN:a\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: AGENT:BEGIN:VCARD  \\nFN:b\\nEND:VCARD FN:a"));
}

TEST(CardSplitter, KnowsMarkersBehindTheMarksOfJoinedFiles) {
  const Split split(
      "BEGIN:VCARD\nFN:a\nEND:VCARD\n\xEF\xBB\xBF"
      "BEGIN:VCARD\nFN:b\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: FN:a", "4: FN:b"));
  EXPECT_THAT(split.problems, IsEmpty());
}

}  // namespace
}  // namespace ov::vcard
