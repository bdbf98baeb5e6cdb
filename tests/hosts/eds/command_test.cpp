#include <sys/stat.h>

#include <filesystem>

#include "live_test.h"

namespace {

using testing::HasSubstr;

/// The command on the desktop of this process.
class LiveCommand : public LiveTest {
 protected:
  static Outcome ovbook(std::vector<std::string> words) {
    words.insert(words.begin(), OV_OVBOOK);
    Surroundings surroundings;
    surroundings.environment = Desktop::ofThisProcess().environment();
    return runProgram(words, surroundings);
  }
  static std::string file(const std::string& name) {
    return Desktop::ofThisProcess().path("home/" + name);
  }
  [[nodiscard]] std::string uid() const { return bookUID.str(); }
};

TEST_F(LiveCommand, ListsTheBooks) {
  const Outcome outcome = ovbook({"books", "--tsv"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr(uid() + "\tStudy\tlocal\trw\t\n"));
  EXPECT_THAT(outcome.out, HasSubstr("system-address-book\t"));
  EXPECT_THAT(outcome.out, HasSubstr("\tlocal\trw\t*\n"));
  EXPECT_THAT(ovbook({"books"}).out, HasSubstr("  Study  "));
}

TEST_F(LiveCommand, ImportsABookOfTheDesktop) {
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nTEL;TYPE=WORK:555-01\r\n");
  const Outcome outcome = ovbook({"import", "--from-book", uid(), "-o", file("import.ovbook")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, HasSubstr("1 person, 0 groups"));
  EXPECT_THAT(ovbook({"list", "--tsv", file("import.ovbook")}).out, HasSubstr("kim\tKim\t555-01"));
}

TEST_F(LiveCommand, ExportsWhoIsNotThereYet) {
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\n");
  writeFile(file("cards.vcf"), liveCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\n") +
                                   liveCard("UID:ida\r\nFN:Ida\r\nN:Ida;;;;\r\n"));
  const std::string book = file("export.ovbook");
  EXPECT_EQ(ovbook({"import", file("cards.vcf"), "-o", book}).status, 0);
  const Outcome trial = ovbook({"export", book, "--to-book", uid(), "--dry-run"});
  EXPECT_EQ(trial, (Outcome{0, "ida  Ida\nStudy: would add 1 of 2 persons\n", ""}));
  EXPECT_EQ(openedBook()->allPersonsCount(), 1U);
  const Outcome done = ovbook({"export", book, "--to-book", uid()});
  EXPECT_EQ(done, (Outcome{0, "Study: added 1 of 2 persons\n", ""}));
  EXPECT_EQ(openedBook()->allPersonsCount(), 2U);
  EXPECT_EQ(ovbook({"export", book, "--to-book", uid()}).out, "Study: added 0 of 2 persons\n");
}

TEST_F(LiveCommand, ATargetThatIsNoFileIsNotReplaced) {
  const std::string pipe = file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), S_IRWXU), 0);
  const Outcome outcome = ovbook({"import", "--from-book", uid(), "-o", pipe});
  EXPECT_EQ(outcome, (Outcome{2, "",
                              "ovbook: " + pipe +
                                  ": is not a regular file and would be replaced by one\n"}));
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

TEST_F(LiveCommand, ABookThatIsNotThereIsAnError) {
  const Outcome outcome = ovbook({"import", "--from-book", "nobody", "-o", file("none.ovbook")});
  EXPECT_EQ(outcome, (Outcome{2, "", "ovbook: nobody: there is no such address book\n"}));
}

TEST_F(LiveCommand, WithoutItsPackageTheCommandSaysSo) {
  const std::string alone = file("ovbook");
  std::filesystem::copy_file(OV_OVBOOK, alone, std::filesystem::copy_options::overwrite_existing);
  const Outcome outcome = runProgram({alone, "books"}, {});
  EXPECT_EQ(outcome, (Outcome{2, "",
                              "ovbook: the desktop's address books need the package "
                              "ovbook-live\n"}));
}

}  // namespace
