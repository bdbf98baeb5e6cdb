#include <filesystem>

#include "ovbook_test.h"

using testing::AllOf;
using testing::EndsWith;
using testing::Field;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class CommandLine : public OvbookTest {};

class HelpOfCommand : public OvbookTest, public testing::WithParamInterface<const char*> {};

std::vector<std::string> words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

}  // namespace

TEST_P(HelpOfCommand, IsShown) {
  std::vector<std::string> arguments = words(GetParam());
  arguments.emplace_back("--help");
  const Outcome outcome = ovbook(arguments);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("Usage: ovbook"), HasSubstr("-h,--help")));
  arguments.back() = "-h";
  EXPECT_EQ(ovbook(arguments), outcome);
}

INSTANTIATE_TEST_SUITE_P(Levels, HelpOfCommand,
                         testing::Values("", "import", "export", "list", "show", "dump",
                                         "name-order", "countries", "country", "layout", "format",
                                         "tag", "tag STORE list", "tag STORE add",
                                         "tag STORE remove", "tag STORE drop", "tag STORE clear",
                                         "tag STORE set", "tag add"));

TEST_F(CommandLine, VersionIsShown) {
  EXPECT_EQ(ovbook({"--version"}), success("ovbook " OVBOOK_VERSION "\n"));
}

TEST_F(CommandLine, ACommandIsNeeded) {
  EXPECT_EQ(ovbook({}), failure("A subcommand is required (see ovbook --help)"));
}

TEST_F(CommandLine, UnknownCommandsAreNamed) {
  EXPECT_EQ(ovbook({"frobnicate"}),
            failure("frobnicate: no such command or option (see ovbook --help)"));
  EXPECT_EQ(ovbook({"tag", "store", "frobnicate"}),
            failure("frobnicate: no such command or option (see ovbook tag --help)"));
}

TEST_F(CommandLine, UnknownOptionsAreNamed) {
  EXPECT_EQ(ovbook({"--frobnicate"}),
            failure("--frobnicate: no such command or option (see ovbook --help)"));
  EXPECT_THAT(ovbook({"countries", "--frobnicate"}),
              AllOf(Field(&Outcome::status, 2), Field(&Outcome::err, HasSubstr("--frobnicate"))));
}

TEST_F(CommandLine, MissingAndExcessArgumentsAreNamed) {
  EXPECT_EQ(ovbook({"list"}), failure("BOOK is required (see ovbook list --help)"));
  EXPECT_EQ(ovbook({"tag", "store", "add", "person"}),
            failure("TAG is required (see ovbook tag add --help)"));
  EXPECT_EQ(ovbook({"countries", "[more]"}),
            failure("The following argument was not expected: [more] "
                    "(see ovbook countries --help)"));
}

TEST_F(CommandLine, AnOptionWantsItsValue) {
  EXPECT_THAT(ovbook({"export", "book", "-o"}),
              AllOf(Field(&Outcome::status, 2), Field(&Outcome::out, ""),
                    Field(&Outcome::err, StartsWith("ovbook: --output"))));
}

TEST_F(CommandLine, ControlCharactersInArgumentsAreShownEscaped) {
  EXPECT_EQ(ovbook({"list", "\033[31m\n"}), failure("\\u001b[31m\\n: No such file or directory"));
  EXPECT_EQ(ovbook({"\xFF"}), failure("\uFFFD: no such command or option (see ovbook --help)"));
}

TEST_F(CommandLine, AReaderThatHasSeenEnoughIsNoFailure) {
  EXPECT_EQ(ovbookIn({.outputIsBroken = true}, {"countries"}), success());
  EXPECT_EQ(ovbookIn({.outputIsBroken = true}, {"--help"}), success());
}

TEST_F(CommandLine, AFullDiskIsAFailure) {
  for (const char* command : {"countries", "--version"}) {
    EXPECT_EQ(ovbookIn({.outputFile = "/dev/full"}, {command}),
              failure("standard output: No space left on device"));
  }
}

TEST_F(CommandLine, AClosedOutputIsAFailure) {
  EXPECT_EQ(ovbookIn({.outputIsClosed = true}, {"countries"}),
            failure("standard output: Bad file descriptor"));
  EXPECT_EQ(ovbookIn({.outputIsClosed = true}, {"tag", "store", "add", "person", "tag"}),
            success());
  EXPECT_EQ(ovbook({"tag", "store", "list"}), success("tag\tperson\n"));
}

TEST_F(CommandLine, PreferencesAreUnderTheNameOvbook) {
  EXPECT_EQ(ovbook({"name-order", "last"}), success());
  EXPECT_TRUE(std::filesystem::is_directory(path("preferences/ovbook")));
}
