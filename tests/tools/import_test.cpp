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

TEST_F(Import, AnEmptyFileMakesAnEmptyBook) {
  EXPECT_THAT(importFiles({file("empty.vcf", "")}).out, HasSubstr(": 0 persons, 0 groups, "));
  EXPECT_EQ(list(), "");
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
  EXPECT_EQ(importFiles({notes}),
            failure(notes + ":2: this text stands outside of any card; nothing "
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
            failure("/dev/null: is no ordinary file, and would be replaced by one"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST_F(Import, ItsOwnInputIsNotOverwritten) {
  const std::string cards = cardsOf("cards.vcf", {person("a")});
  std::filesystem::create_hard_link(cards, path("book"));
  EXPECT_EQ(importFiles({cards}), failure(path("book") + ": is read and would be overwritten"));
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
  EXPECT_THAT(importFiles({cards}).err, HasSubstr("the file's name is no well-formed UTF-8"));
  EXPECT_EQ(ovbook({"import", cardsOf("cards.vcf", {person("a")}), "-o", path("b\xFF")}).status, 2);
  EXPECT_THAT(names(), ElementsAre("cards.vcf", "cards\xFF.vcf"));
}

TEST_F(Import, NoBarIsDrawnIntoAFile) {
  EXPECT_EQ(importFiles({std::string(EXAMPLE_CONTACTS)}).err.find('\r'), std::string::npos);
}
