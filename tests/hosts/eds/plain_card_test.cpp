#include "plain_card.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "codec/card_reader.h"
#include "mapping/reading.h"

namespace {

using ov::eds::uidOfPlainCard;

std::string cardOf(std::string_view lines, std::string_view version = "3.0") {
  return "BEGIN:VCARD\r\nVERSION:" + std::string(version) + "\r\n" + std::string(lines) +
         "END:VCARD\r\n";
}

const std::string kCard = cardOf(
    "UID:a-1\r\n"
    "FN:Mira \"M\" Halonen\r\n"
    "item1.TEL;X-EVOLUTION-E164=2079460018,\"+44\";TYPE=pref:+44 20\r\n  7946 0018\r\n"
    "item1.X-ABLABEL:Work\r\n"
    "NOTE:Å\\, and: more;\r\n"
    "REV:2026-11-22T13:06:44Z\r\n");

class CountedProblems final : public ov::card::Problems {
 public:
  void error(std::size_t /*line*/, std::string_view /*reason*/) override { ++count; }
  void warning(std::size_t /*line*/, std::string_view /*reason*/) override { ++count; }
  int count = 0;
};

/// Whether a glance at the card, where it is plain, says what reading it says.
testing::AssertionResult glanceIsRight(const std::string& text) {
  const std::string_view uid = uidOfPlainCard(text);
  if (uid.empty()) return testing::AssertionSuccess();
  CountedProblems problems;
  ov::card::CardReader reader(text, problems);
  const ov::card::Card* const card = reader.next();
  const bool isRight = card != nullptr && card->source == text && card->rest.empty() &&
                       !card->isRespelled && ov::card::uidOf(card->lines) == uid &&
                       std::none_of(card->lines.begin(), card->lines.end(), ov::card::saysGroup) &&
                       reader.next() == nullptr && problems.count == 0;
  return isRight ? testing::AssertionSuccess() : testing::AssertionFailure() << text;
}

TEST(PlainCard, IsOneOfTheService) { EXPECT_EQ(uidOfPlainCard(kCard), "a-1"); }

TEST(PlainCard, HasOneUIDInOnePiece) {
  EXPECT_EQ(uidOfPlainCard(cardOf("FN:x\r\n")), "");
  EXPECT_EQ(uidOfPlainCard(cardOf("UID:\r\nFN:x\r\n")), "");
  EXPECT_EQ(uidOfPlainCard(cardOf("UID:a\r\n b\r\nFN:x\r\n")), "");
  EXPECT_EQ(uidOfPlainCard(cardOf("UID:a\\,b\r\nFN:x\r\n")), "");
  EXPECT_EQ(uidOfPlainCard(cardOf("UID:a\r\nUID:b\r\nFN:x\r\n")), "");
}

TEST(PlainCard, IsNoGroup) {
  for (const char* line :
       {"KIND:group", "X-ADDRESSBOOKSERVER-KIND:group", "kind:group", "X-EVOLUTION-LIST:TRUE"}) {
    EXPECT_EQ(uidOfPlainCard(cardOf("UID:a\r\n" + std::string(line) + "\r\n")), "") << line;
  }
}

TEST(PlainCard, HasNothingThatIsReadInAnotherForm) {
  for (const char* line : {"PHOTO;VALUE=uri:file:///a", "NOTE;ENCODING=QUOTED-PRINTABLE:=41",
                           "NOTE;CHARSET=latin1:x", "NOTE;QUOTED-PRINTABLE:x", "AGENT:", "no colon",
                           "NOTE;X-A=\"b:x", "\tx", "NOTE:a\nb", "NOTE:a\rb", ""}) {
    EXPECT_EQ(uidOfPlainCard(cardOf("UID:a\r\n" + std::string(line) + "\r\n")), "") << line;
  }
  EXPECT_EQ(uidOfPlainCard(cardOf("UID:a\r\nN:b\r\n", "2.1")), "");
  EXPECT_EQ(uidOfPlainCard(kCard + kCard), "");
  EXPECT_EQ(uidOfPlainCard(kCard.substr(0, kCard.size() - 2)), "");
}

TEST(PlainCard, IsReadAsItSeems) {
  EXPECT_TRUE(glanceIsRight(kCard));
  for (std::size_t at = 0; at < kCard.size(); ++at) {
    for (const std::string_view other :
         {"", "\r\n", "\r", "\n", " ", "\t", ":", ";", "=", "\"", "\\", ".", "X", "UID:b\r\n",
          "KIND:group\r\n", "ENCODING=b:", "END:VCARD\r\n", "\r\n "}) {
      std::string changed = kCard;
      EXPECT_TRUE(glanceIsRight(changed.replace(at, 1, other)));
      changed = kCard;
      EXPECT_TRUE(glanceIsRight(changed.insert(at, other)));
    }
  }
}

}  // namespace
