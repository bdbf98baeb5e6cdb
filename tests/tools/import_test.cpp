#include <sys/stat.h>

#include <filesystem>

#include "import_test.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

mode_t modeOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

TEST_F(Import, SaysWhatItWrote) {
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
  EXPECT_EQ(modeOf(path("book")), 0600U);
}

TEST_F(Import, AReplacedBookKeepsItsMode) {
  ASSERT_EQ(chmod(file("book", "old").c_str(), 0640), 0);
  EXPECT_EQ(importFiles({cardsOf("cards.vcf", {person("a")})}).status, 0);
  EXPECT_EQ(modeOf(path("book")), 0640U);
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

}  // namespace
