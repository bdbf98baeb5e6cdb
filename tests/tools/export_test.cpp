#include <filesystem>

#include "ovbook_test.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

class Export : public OvbookTest {
 protected:
  /// The path of a book of the cards.
  std::string bookOf(const std::string& cards) {
    EXPECT_EQ(ovbook({"import", file("cards.vcf", cards), "-o", path("book")}).status, 0);
    return path("book");
  }
};

}  // namespace

TEST_F(Export, WritesCardsThatMakeTheSameBook) {
  const std::string first = path("first");
  const std::string second = path("second");
  EXPECT_EQ(ovbook({"import", EXAMPLE_CONTACTS, "-o", first}).status, 0);
  EXPECT_EQ(ovbook({"export", first, "-o", path("cards.vcf")}), success());
  EXPECT_EQ(ovbook({"import", path("cards.vcf"), "-o", second}).status, 0);
  const Outcome list = ovbook({"list", "--tsv", first});
  EXPECT_GE(std::count(list.out.begin(), list.out.end(), '\n'), 40);
  EXPECT_EQ(ovbook({"list", "--tsv", second}), list);
  EXPECT_EQ(ovbook({"show", second}), ovbook({"show", first}));
  EXPECT_EQ(readFile(second), readFile(first));
}

TEST_F(Export, TakesTagsFromAStore) {
  const std::string book =
      bookOf(card("UID:a\nCATEGORIES:old\n") + card("UID:b\nCATEGORIES:own\n"));
  EXPECT_EQ(ovbook({"tag", "work", "set", "a", "red", "blue"}), success());
  EXPECT_EQ(ovbook({"export", book, "--tags", "work", "-o", path("out.vcf")}), success());
  const std::string cards = readFile(path("out.vcf"));
  EXPECT_THAT(cards, HasSubstr("CATEGORIES:red,blue"));
  EXPECT_THAT(cards, HasSubstr("CATEGORIES:own"));
  EXPECT_THAT(cards, Not(HasSubstr("old")));
}

TEST_F(Export, ADamagedBookIsAFailureAndWritesNothing) {
  const std::string book = file("book", "no book");
  EXPECT_EQ(ovbook({"export", book, "-o", path("out.vcf")}),
            failure(book + ": not a binary property list"));
  EXPECT_THAT(names(), ElementsAre("book"));
}

TEST_F(Export, TheBookItselfIsNotOverwritten) {
  const std::string book = bookOf(card("UID:a\n"));
  const std::string before = readFile(book);
  EXPECT_EQ(ovbook({"export", book, "-o", book}),
            failure(book + ": is an input file and would be overwritten"));
  EXPECT_EQ(readFile(book), before);
}

TEST_F(Export, AFileThatCannotBeWrittenWholeStaysAsItWas) {
  const std::string book = bookOf(card("UID:a\nNOTE:" + std::string(1000, 'x') + "\n"));
  file("out.vcf", "as it was");
  EXPECT_EQ(ovbookIn({.largestFile = 500}, {"export", book, "-o", path("out.vcf")}),
            failure(path("out.vcf") + ": File too large"));
  EXPECT_EQ(readFile(path("out.vcf")), "as it was");
  EXPECT_THAT(names(), ElementsAre("book", "cards.vcf", "out.vcf"));
}

TEST_F(Export, AFolderInTheWayIsAFailure) {
  const std::string book = bookOf(card("UID:a\n"));
  std::filesystem::create_directory(path("out"));
  EXPECT_EQ(ovbook({"export", book, "-o", path("out")}), failure(path("out") + ": Is a directory"));
}

TEST_F(Export, WritesToStandardOutput) {
  const std::string book = bookOf(card("UID:a\nFN:A\n"));
  EXPECT_EQ(ovbook({"export", book, "-o", path("out.vcf")}), success());
  EXPECT_EQ(ovbook({"export", book, "-o", "-"}), success(readFile(path("out.vcf"))));
  EXPECT_THAT(names(), ElementsAre("book", "cards.vcf", "out.vcf"));
}

TEST_F(Export, ATerminalShowsText) {
  const std::string book = bookOf(card("UID:a\nFN:A\n"));
  EXPECT_EQ(ovbookIn({.outputIsTerminal = true}, {"export", book, "-o", "-"}), success());
}

TEST_F(Export, AFullOutputIsAFailure) {
  const std::string book = bookOf(card("UID:a\nFN:A\n"));
  EXPECT_EQ(ovbookIn({.outputFile = "/dev/full"}, {"export", book, "-o", "-"}),
            failure("standard output: No space left on device"));
}
