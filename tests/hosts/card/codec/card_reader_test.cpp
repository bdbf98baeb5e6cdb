#include "codec/card_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "codec/line_writer.h"
#include "hosts/card/codec/cards.h"

namespace ov::card {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Split {
  explicit Split(std::string_view text) {
    problems = readCards(text, [&](const Card& card) {
      std::string lines = std::to_string(card.number) + ":";
      for (const Line& line : card.lines) lines += " " + described(line);
      cards.push_back(lines);
      sources.emplace_back(card.source);
      rests.emplace_back(card.rest);
    });
  }

  std::vector<std::string> cards;
  std::vector<std::string> sources;
  std::vector<std::string> rests;
  std::vector<std::string> problems;
};

TEST(CardReader, FindsCardsWithTheirLines) {
  const Split split("BEGIN:VCARD\r\nFN:a\r\nEND:VCARD\r\n\r\nbegin : vcard \nFN:b\nEnd:vCard");
  EXPECT_THAT(split.cards, ElementsAre("1: FN:a", "5: FN:b"));
  EXPECT_THAT(split.sources, ElementsAre("BEGIN:VCARD\r\nFN:a\r\nEND:VCARD\r\n",
                                         "begin : vcard \nFN:b\nEnd:vCard"));
  EXPECT_THAT(split.rests, ElementsAre("", "\n"));
  EXPECT_THAT(split.problems, IsEmpty());
}

TEST(CardReader, FindsNoneInAnEmptyText) {
  for (const char* text : {"", "\n\n  \n"}) {
    const Split split(text);
    EXPECT_THAT(split.cards, IsEmpty());
    EXPECT_THAT(split.problems, IsEmpty());
  }
}

TEST(CardReader, FindsTheVersion) {
  const auto versionOf = [](std::string_view lines) {
    Version version{};
    readCards("BEGIN:VCARD\n" + std::string(lines) + "\nEND:VCARD\n",
              [&](const Card& card) { version = card.version; });
    return version;
  };
  EXPECT_EQ(versionOf("VERSION:2.1"), Version::V2_1);
  EXPECT_EQ(versionOf("version : 2.1"), Version::V2_1);
  EXPECT_EQ(versionOf("FN:x\nVERSION:2.1"), Version::V2_1);
  EXPECT_EQ(versionOf("VERSION:4.0\nVERSION:2.1"), Version::V4_0);
  EXPECT_EQ(versionOf("VERSION:3.0"), Version::V3_0);
  EXPECT_EQ(versionOf("VERSION:?"), Version::V3_0);
  EXPECT_EQ(versionOf("FN:x"), Version::V3_0);
  EXPECT_EQ(versionOf("AGENT:\nBEGIN:VCARD\nVERSION:2.1\nEND:VCARD\nVERSION:4.0"), Version::V4_0);
}

TEST(CardReader, ReportsTextBetweenCardsOnceEach) {
  const Split split(
      "junk\nmore\nBEGIN:VCARD\nFN:a\nEND:VCARD\n\njunk\n\nagain\nBEGIN:VCARD\nFN:b\nEND:VCARD\n"
      "END:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("3: FN:a", "10: FN:b"));
  EXPECT_THAT(split.problems,
              ElementsAre("!1: this text is outside any card", "!7: this text is outside any card",
                          "!13: this text is outside any card"));
}

TEST(CardReader, ACardWithoutEndEndsWhereTheNextBegins) {
  const Split split("BEGIN:VCARD\nFN:a\nBEGIN:VCARD\nFN:b");
  EXPECT_THAT(split.cards, ElementsAre("1: FN:a", "3: FN:b"));
  EXPECT_THAT(split.sources, ElementsAre("BEGIN:VCARD\nFN:a\n", "BEGIN:VCARD\nFN:b"));
  EXPECT_THAT(split.rests, ElementsAre("END:VCARD\n", "\nEND:VCARD\n"));
  EXPECT_THAT(split.problems,
              ElementsAre("!1: this card has no END:VCARD; its content was imported anyway",
                          "!3: this card has no END:VCARD; its content was imported anyway"));
}

TEST(CardReader, KeepsTheCardOfAnAgentInside) {
  const Split split(
      "BEGIN:VCARD\nitem1.agent;X=y:\nBEGIN:VCARD\nFN:b\nAGENT:\nBEGIN:VCARD\nFN:c\nEND:VCARD\n"
      "END:VCARD\nFN:a\nEND:VCARD\n");
  EXPECT_THAT(split.cards,
              ElementsAre("1: item1.AGENT;X=y:BEGIN:VCARD\\nFN:b\\nAGENT:\\nBEGIN:VCARD\\nFN:c"
                          "\\nEND:VCARD\\nEND:VCARD\\n FN:a"));
  EXPECT_THAT(split.problems, IsEmpty());
}

TEST(CardReader, AnAgentMayBeginOnItsOwnLine) {
  const Split split("BEGIN:VCARD\nAGENT:BEGIN:VCARD\nFN:b\nEND:VCARD\nFN:a\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: AGENT:BEGIN:VCARD\\nFN:b\\nEND:VCARD\\n FN:a"));
}

TEST(CardReader, LinesFoldedAfterTheCardOfAnAgentBelongToIt) {
  const Split split("BEGIN:VCARD\nAGENT:BEGIN:VCARD\nFN:b\nEND:VCARD\n c\nFN:a\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: AGENT:BEGIN:VCARD\\nFN:b\\nEND:VCARD\\n c\\n FN:a"));
  const Split respelled("BEGIN:VCARD\nAGENT:BEGIN:VCARD\nN:\xE4\nEND:VCARD\n \nEND:VCARD\n");
  EXPECT_THAT(respelled.sources,
              ElementsAre("BEGIN:VCARD\nAGENT:BEGIN:VCARD\\nN:\u00E4\\nEND:VCARD\\n \\n\n"
                          "END:VCARD\n"));
}

TEST(CardReader, AFoldedAgentIsOneLine) {
  const Split split("BEGIN:VCARD\nAGENT:BEGIN:VCARD\n \\nFN:b\\nEND:VCARD\nFN:a\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: AGENT:BEGIN:VCARD\\nFN:b\\nEND:VCARD FN:a"));
}

TEST(CardReader, EndsAllCardsThatAreOpen) {
  const Split split("BEGIN:VCARD\nAGENT:\nBEGIN:VCARD\nFN:b\nBEGIN:VCARD\nFN:c\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: AGENT:BEGIN:VCARD\\nFN:b\\nEND:VCARD\\n", "5: FN:c"));
  EXPECT_THAT(split.rests, ElementsAre("END:VCARD\nEND:VCARD\n", ""));
}

TEST(CardReader, KeepsEmptyLinesOfAnAgent) {
  const Split split("BEGIN:VCARD\nAGENT:BEGIN:VCARD\n\n");
  EXPECT_THAT(split.cards, ElementsAre("1: AGENT:BEGIN:VCARD\\n\\nEND:VCARD\\n"));
}

TEST(CardReader, EndsARespelledCardOnce) {
  const Split split("BEGIN:VCARD\nAGENT:BEGIN:VCARD\nN:\xE4");
  EXPECT_THAT(split.sources, ElementsAre("BEGIN:VCARD\nAGENT:BEGIN:VCARD\\nN:\u00E4\\n"
                                         "END:VCARD\\n\n"));
  EXPECT_THAT(split.rests, ElementsAre("END:VCARD\n"));
}

TEST(CardReader, KnowsMarkersBehindTheMarksOfJoinedFiles) {
  const Split split(
      "BEGIN:VCARD\nFN:a\nEND:VCARD\n\xEF\xBB\xBF"
      "BEGIN:VCARD\nFN:b\nEND:VCARD\n");
  EXPECT_THAT(split.cards, ElementsAre("1: FN:a", "4: FN:b"));
  EXPECT_EQ(split.sources.at(1), "BEGIN:VCARD\nFN:b\nEND:VCARD\n");
  EXPECT_THAT(split.problems, IsEmpty());
}

TEST(CardReader, GivesViewsOfTheText) {
  const std::string text = card("FN:a\n\njunk\nNOTE:b\n c\n\n", "3.0");
  readCards(text, [&](const Card& card) {
    EXPECT_FALSE(card.isRespelled);
    EXPECT_EQ(card.source.data(), text.data());
    EXPECT_EQ(card.source, text);
    ASSERT_EQ(card.lines.size(), 2U);
    EXPECT_EQ(card.lines[0].source(), "FN:a\n");
    EXPECT_EQ(card.lines[0].text().data(), text.data() + text.find("a\n"));
    EXPECT_EQ(card.lines[1].source(), "NOTE:b\n c\n");
  });
}

/// What can be told of all cards.
std::string contentOf(std::string_view text) {
  std::string all;
  readCards(text, [&](const Card& card) {
    for (const Line& line : card.lines) all += described(line) + "\n";
    all += "--\n";
  });
  return all;
}

/// Reads the text, and the sources of the cards, which must say the same.
void expectStable(std::string_view text) {
  std::string sources;
  readCards(text, [&](const Card& card) {
    const char* at = card.source.data();
    for (const Line& line : card.lines) {
      ASSERT_LE(at, line.source().data());
      at = line.source().data() + line.source().size();
    }
    ASSERT_LE(at, card.source.data() + card.source.size());
    sources.append(card.source).append(card.rest);
  });
  EXPECT_EQ(contentOf(sources), contentOf(text)) << testing::PrintToString(std::string(text));
  std::string again;
  readCards(sources, [&](const Card& card) { again.append(card.source).append(card.rest); });
  EXPECT_EQ(again, sources) << testing::PrintToString(std::string(text));
}

TEST(MaliciousCards, MayBeCutAnywhere) { useCutCards(expectStable); }
TEST(MaliciousCards, MayLackAnyByte) { useCardsThatLackAByte(expectStable); }
TEST(MaliciousCards, MayHaveAnyByteChanged) { useChangedCards(3000, expectStable); }
TEST(MaliciousCards, MayBeAnyBytes) { useAnyBytes(expectStable); }
TEST(MaliciousCards, MayNestWithoutEnd) { useNestedCards(expectStable); }

/// What would take forever if the time grew with the square of the size.
TEST(MaliciousCards, TakeTimeInProportionToTheirSize) {
  useCostlyCards(100000, [](const std::string& text) { contentOf(text); });
}

TEST(MaliciousCards, HaveTheirValuesLookedAtOnce) {
  const std::string plain = repeated("a", 100000);
  for (const std::string& line :
       {"X:" + plain, "X:" + plain + "\\n", "X:" + plain + "\n b", "X;ENCODING=b:aaaa" + plain}) {
    readLine(
        line,
        [](const Line& read) {
          std::size_t size = 0;
          for (int i = 0; i < 200000; ++i) size += read.value().size() + read.text().size();
          EXPECT_GT(size, 0U);
          EXPECT_EQ(read.value().data(), read.value().data());
          EXPECT_EQ(read.text().data(), read.text().data());
        },
        "3.0");
  }
}

}  // namespace
}  // namespace ov::card
