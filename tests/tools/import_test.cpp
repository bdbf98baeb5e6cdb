#include <sys/stat.h>

#include <filesystem>

#include "ovbook_test.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class Import : public OvbookTest {
 protected:
  Outcome importFiles(Arguments files) {
    files.insert(files.begin(), "import");
    files.insert(files.end(), {"-o", path("book")});
    return ovbook(files);
  }

  std::string cardsOf(std::string_view name, std::initializer_list<std::string> cards) {
    std::string all;
    for (const std::string& each : cards) all += each;
    return file(name, all);
  }

  mode_t modeOf(const std::string& name) {
    struct stat status = {};
    EXPECT_EQ(stat(path(name).c_str(), &status), 0);
    return status.st_mode & 07777;
  }

  /// IDs and names of the imported persons.
  std::string list() { return ovbook({"list", path("book")}).out; }
};

std::string person(const std::string& ID) { return card("UID:" + ID + "\nN:;" + ID + ";;;\n"); }

}  // namespace

TEST_F(Import, TellsWhatItWrote) {
  const std::string family = card("UID:g\nKIND:group\nFN:Family\nMEMBER:a\n");
  const std::string cards = cardsOf("cards.vcf", {person("a"), person("b"), family});
  const Outcome outcome = importFiles({cards});
  EXPECT_EQ(outcome,
            success(path("book") + ": 2 persons, 1 group, " +
                    std::to_string(std::filesystem::file_size(path("book"))) + " bytes\n"));
  EXPECT_EQ(list(), "a  a\nb  b\n");
  EXPECT_THAT(ovbook({"show", path("book"), "g"}).out, HasSubstr("Family [group]"));
}

TEST_F(Import, TakesSeveralFilesInOrder) {
  EXPECT_EQ(importFiles({cardsOf("2.vcf", {person("x")}), cardsOf("1.vcf", {person("y")})}).status,
            0);
  EXPECT_EQ(list(), "x  x\ny  y\n");
}

TEST_F(Import, TakesGroupsInsideGroups) {
  const std::string outer = card("UID:outer\nKIND:group\nFN:Outer\nMEMBER:inner\n");
  const std::string inner = card("UID:inner\nKIND:group\nFN:Inner\nMEMBER:a\n");
  EXPECT_THAT(importFiles({cardsOf("cards.vcf", {person("a"), inner, outer})}).out,
              HasSubstr(": 1 person, 2 groups, "));
  EXPECT_EQ(ovbook({"show", path("book"), "outer", "inner"}).out,
            "Outer [group]\n  ID      outer\n  Groups  inner  Inner\n\n"
            "Inner [group]\n  ID       inner\n  Persons  a  a\n");
}

TEST_F(Import, FilesWithoutCardsLeaveTheOldBook) {
  const std::string before = file("book", "as it was");
  const std::string empty = file("empty.vcf", "");
  const std::string blank = file("blank.vcf", "\n\n");
  EXPECT_EQ(importFiles({empty}), failure(empty + ": contains no card; nothing could be imported"));
  EXPECT_EQ(
      importFiles({blank, empty}),
      failure(blank +
              ": contains no card, and neither do the other files; nothing could be imported"));
  EXPECT_EQ(readFile(before), "as it was");
}

TEST_F(Import, OneFileWithACardIsEnough) {
  EXPECT_EQ(importFiles({file("empty.vcf", ""), cardsOf("a.vcf", {person("a")})}).status, 0);
  EXPECT_EQ(list(), "a  a\n");
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

TEST_F(Import, FilesWithoutAnyCardAreAFailureAndWriteNothing) {
  const std::string notes = file("notes.txt", "\nno card\n");
  EXPECT_EQ(importFiles({notes}), failure(notes + ":2: this text is outside any card; nothing "
                                                  "could be imported"));
  EXPECT_THAT(names(), ElementsAre("notes.txt"));
}

TEST_F(Import, AMissingFileIsAFailureAndLeavesTheBook) {
  const std::string before = file("book", "as it was");
  EXPECT_EQ(importFiles({cardsOf("cards.vcf", {person("a")}), path("none.vcf")}),
            failure(path("none.vcf") + ": No such file or directory"));
  EXPECT_EQ(readFile(before), "as it was");
}

TEST_F(Import, AFolderInTheWayIsAFailure) {
  std::filesystem::create_directory(path("book"));
  EXPECT_EQ(importFiles({cardsOf("cards.vcf", {person("a")})}),
            failure(path("book") + ": Is a directory"));
  EXPECT_THAT(names(), ElementsAre("book", "cards.vcf"));
}

TEST_F(Import, AMissingFolderIsAFailure) {
  const std::string cards = cardsOf("cards.vcf", {person("a")});
  for (const std::string& target : {path("none/book"), std::string("/dev/null/book")}) {
    const Outcome outcome = ovbook({"import", cards, "-o", target});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, StartsWith("ovbook: " + target + ": "));
  }
}

TEST_F(Import, ADeviceIsNotReplaced) {
  EXPECT_EQ(ovbook({"import", cardsOf("cards.vcf", {person("a")}), "-o", "/dev/null"}),
            failure("/dev/null: is not a regular file and would be replaced by one"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST_F(Import, ItsOwnInputIsNotOverwritten) {
  const std::string cards = cardsOf("cards.vcf", {person("a")});
  std::filesystem::create_hard_link(cards, path("book"));
  EXPECT_EQ(importFiles({cards}),
            failure(path("book") + ": is an input file and would be overwritten"));
  EXPECT_EQ(readFile(cards), person("a"));
}

TEST_F(Import, ABookThatCannotBeWrittenWholeStaysAsItWas) {
  file("book", "as it was");
  const std::string cards = cardsOf("cards.vcf", {person("a")});
  EXPECT_EQ(ovbookIn({.largestFile = 100}, {"import", cards, "-o", path("book")}),
            failure(path("book") + ": File too large"));
  EXPECT_EQ(readFile(path("book")), "as it was");
  EXPECT_THAT(names(), ElementsAre("book", "cards.vcf"));
}

TEST_F(Import, ANewBookIsForItsOwnerOnly) {
  EXPECT_EQ(importFiles({cardsOf("cards.vcf", {person("a")})}).status, 0);
  EXPECT_EQ(modeOf("book"), 0600U);
}

TEST_F(Import, AReplacedBookKeepsItsMode) {
  ASSERT_EQ(chmod(file("book", "old").c_str(), 0640), 0);
  EXPECT_EQ(importFiles({cardsOf("cards.vcf", {person("a")})}).status, 0);
  EXPECT_EQ(modeOf("book"), 0640U);
  EXPECT_EQ(list(), "a  a\n");
}

TEST_F(Import, TagsReachTheStore) {
  const std::string cards = cardsOf("cards.vcf", {card("UID:a\nCATEGORIES:red,blue\n"), person("b"),
                                                  card("UID:c\nCATEGORIES:red\n")});
  EXPECT_EQ(ovbook({"tag", "work", "set", "a", "old"}), success());
  EXPECT_EQ(ovbook({"tag", "work", "set", "b", "kept"}), success());
  EXPECT_EQ(importFiles({"--tags", "work", cards}).status, 0);
  EXPECT_EQ(ovbook({"tag", "work", "list"}), success("kept\tb\nred\ta\tc\nblue\ta\n"));
}

TEST_F(Import, ADamagedTagStoreIsAFailureAndWritesNothing) {
  EXPECT_EQ(ovbook({"country", "fr"}), success());
  const std::string cards = cardsOf("cards.vcf", {card("UID:a\nCATEGORIES:red\n")});
  EXPECT_EQ(importFiles({"--tags", "Default_Country_Key", cards}).status, 2);
  EXPECT_THAT(names(), ElementsAre("cards.vcf"));
}

TEST_F(Import, AFileWhoseNameIsInBracketsIsOneFile) {
  EXPECT_EQ(importFiles({cardsOf("[1,2].vcf]", {person("a")})}).status, 0);
  EXPECT_EQ(list(), "a  a\n");
}

TEST_F(Import, ANameThatIsNoTextIsAFailure) {
  const std::string cards = cardsOf("cards\xFF.vcf", {person("a")});
  EXPECT_THAT(importFiles({cards}).err, HasSubstr("the file name is not valid UTF-8"));
  EXPECT_EQ(ovbook({"import", cardsOf("cards.vcf", {person("a")}), "-o", path("b\xFF")}).status, 2);
  EXPECT_THAT(names(), ElementsAre("cards.vcf", "cards\xFF.vcf"));
}

TEST_F(Import, NoBarIsDrawnIntoAFile) {
  EXPECT_EQ(importFiles({std::string(EXAMPLE_CONTACTS)}).err.find('\r'), std::string::npos);
}

namespace {

/// So many lines that a card cannot hold.
std::string junk(int lines) {
  std::string all;
  for (int i = 0; i < lines; ++i) all += "junk\n";
  return all;
}

}  // namespace

TEST_F(Import, TellsTheFirstMessagesOfEachFile) {
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

TEST_F(Import, WritesToStandardOutput) {
  const std::string cards = cardsOf("cards.vcf", {person("a")});
  const std::string size =
      std::to_string((importFiles({cards}), std::filesystem::file_size(path("book"))));
  const Outcome outcome = ovbook({"import", cards, "-o", "-"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, readFile(path("book")));
  EXPECT_EQ(outcome.err, "ovbook: 1 person, 0 groups, " + size + " bytes\n");
  EXPECT_THAT(names(), ElementsAre("book", "cards.vcf"));
}

TEST_F(Import, WritesNoBookToATerminal) {
  const std::string cards = cardsOf("cards.vcf", {person("a")});
  EXPECT_EQ(ovbookIn({.outputIsTerminal = true}, {"import", cards, "-o", "-"}),
            failure("standard output: is a terminal, and a book is not text"));
}

TEST_F(Import, WhatNeverEndsIsAFailure) {
  EXPECT_EQ(importFiles({"/dev/zero"}), failure("/dev/zero: File too large"));
  EXPECT_EQ(names(), std::vector<std::string>());
}

TEST_F(Import, TellsOfEverythingThatIsLost) {
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

TEST_F(Import, TellsOfEverythingThatIsChanged) {
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
