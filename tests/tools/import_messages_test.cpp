#include "import_test.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// So many lines that a card cannot hold.
std::string junk(int lines) {
  std::string all;
  for (int i = 0; i < lines; ++i) all += "junk\n";
  return all;
}

TEST_F(Import, BrokenCardsAreNamedAndTheOthersImported) {
  const std::string cards =
      cardsOf("cards.vcf", {person("a"), "BEGIN:VCARD\nEND:VCARD\n", person("b")});
  const Outcome outcome = importFiles({cards});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, StartsWith("ovbook: " + cards + ":6: "));
  EXPECT_THAT(outcome.out, HasSubstr(": 2 persons, "));
  EXPECT_EQ(list(), "a  a\nb  b\n");
}

TEST_F(Import, WarningsLeaveTheStatusAlone) {
  const std::string cards = cardsOf("cards.vcf", {person("a"), card("UID:a\nN:;other;;;\n")});
  const Outcome outcome = importFiles({cards});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.err, StartsWith("ovbook: " + cards + ":6: warning: "));
}

TEST_F(Import, NoBarIsDrawnIntoAFile) {
  EXPECT_EQ(importFiles({std::string(EXAMPLE_CONTACTS)}).err.find('\r'), std::string::npos);
}

TEST_F(Import, ShowsTheFirstMessagesOfEachFile) {
  const std::string one = cardsOf("1.vcf", {card("UID:a\n" + junk(25))});
  const std::string two = cardsOf("2.vcf", {card("UID:b\n" + junk(20))});
  const auto told = [&](bool all) {
    std::string lines;
    for (const auto& [file, count] : {std::pair(one, 25), std::pair(two, 20)}) {
      for (int i = 0; i < (all ? count : 20); ++i) {
        lines += "ovbook: " + file + ":" + std::to_string(i + 4) +
                 ": this line is not a valid vCard property\n";
      }
    }
    return lines;
  };
  const Outcome some = importFiles({one, two});
  EXPECT_EQ(some.status, 1);
  EXPECT_EQ(some.err, told(false) + "ovbook: " + one +
                          ": 5 more messages, 5 of them about what was left out (--all-messages "
                          "shows them)\n");
  const Outcome all = importFiles({"--all-messages", one, two});
  EXPECT_EQ(all.status, 1);
  EXPECT_EQ(all.err, told(true));
}

TEST_F(Import, ALossBehindTheFirstMessagesStillCounts) {
  std::string repeats = person("a");
  for (int i = 0; i < 20; ++i) repeats += person("a");
  const std::string warned = cardsOf("1.vcf", {repeats, person("a")});
  const Outcome warnings = importFiles({warned});
  EXPECT_EQ(warnings.status, 0);
  EXPECT_THAT(warnings.err, testing::EndsWith("ovbook: " + warned +
                                              ": 1 more message (--all-messages shows them)\n"));
  const std::string lost = cardsOf("2.vcf", {repeats, "junk\n"});
  const Outcome losses = importFiles({lost});
  EXPECT_EQ(losses.status, 1);
  EXPECT_THAT(losses.err, testing::EndsWith("1 more message, 1 of them about what was left out "
                                            "(--all-messages shows them)\n"));
}

TEST_F(Import, ReportsEverythingThatIsLost) {
  const std::pair<const char*, const char*> rows[] = {
      {"no property\n", "this line is not a valid vCard property"},
      {"END:VCARD\njunk\nBEGIN:VCARD\nFN:x\n", "this text is outside any card"},
      {"END:VCARD\nBEGIN:VCARD\nVERSION:4.0\n", "this card is empty"},
  };
  for (const auto& [lines, reason] : rows) {
    const Outcome outcome =
        importFiles({cardsOf("cards.vcf", {card("UID:a\nFN:a\n" + std::string(lines))})});
    EXPECT_EQ(outcome.status, 1) << lines;
    EXPECT_THAT(outcome.err, HasSubstr(reason)) << lines;
    EXPECT_THAT(outcome.err, testing::Not(HasSubstr("warning"))) << lines;
  }
}

TEST_F(Import, ReportsEverythingThatIsChanged) {
  const std::pair<const char*, const char*> rows[] = {
      {"NOTE:\xE4\n", "were read as Windows-1252"},
      {"NOTE;CHARSET=x-unheard-of:a\n", "x-unheard-of"},
      {"PHOTO;ENCODING=b:?!\n", "this value is not valid base64"},
      {"NOTE;X-A=\"open:a\n", "unbalanced quotes"},
      {"END:VCARD\nBEGIN:VCARD\nUID:a\nFN:other\n", "got the ID a-2"},
      {"END:VCARD\nBEGIN:VCARD\nKIND:group\nFN:g\nMEMBER:nobody\n",
       "the member nobody is not in any file"},
      {"END:VCARD\nBEGIN:VCARD\nKIND:group\nUID:g\nFN:g\nMEMBER:g\n", "this group contains itself"},
  };
  for (const auto& [lines, reason] : rows) {
    const Outcome outcome =
        importFiles({cardsOf("cards.vcf", {card("UID:a\nFN:a\n" + std::string(lines))})});
    EXPECT_THAT(outcome.err, HasSubstr(reason)) << lines;
  }
}

}  // namespace
