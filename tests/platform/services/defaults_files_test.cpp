// The files of the user defaults: who may read them, and where they are.

#include <chrono>
#include <string>
#include <vector>

#include "defaults_files.h"
#include "platform/services/deadline.h"
#include "platform/services/sqlite.h"
#include "support/printers.h"

namespace {

namespace fs = std::filesystem;

unsigned modeOf(const fs::path& path) {
  return static_cast<unsigned>(fs::status(path).permissions());
}

TEST_F(DefaultsFiles, AreForTheirOwnerAlone) {
  const mode_t before = ::umask(0);
  openStore()->setBoolForKey(true, "key");
  ::umask(before);
  EXPECT_EQ(modeOf(home_.path() / "config"), 0700U);
  EXPECT_EQ(modeOf(directory()), 0700U);
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(directory())) {
    names.push_back(entry.path().filename());
    EXPECT_EQ(modeOf(entry.path()), 0600U) << entry.path();
  }
  EXPECT_THAT(names, testing::UnorderedElementsAre("user-defaults.db", "user-defaults.db-wal",
                                                   "user-defaults.db-shm"));
}

TEST_F(DefaultsFiles, TheDatabaseWritesAhead) {
  openStore()->setBoolForKey(true, "key");
  ov::Deadline deadline(std::chrono::seconds(10));
  ov::sqlite::Database connection(database().string(), deadline);
  ov::sqlite::Statement mode(connection, "PRAGMA journal_mode");
  ASSERT_TRUE(mode.step());
  EXPECT_EQ(mode.text(0), "wal");
}

TEST_F(DefaultsFiles, AFolderThatExistsKeepsItsModeAndContent) {
  fs::create_directories(directory());
  fs::permissions(directory(), fs::perms(0755));
  writeFile(directory() / "settings.ini", "x");
  openStore()->setBoolForKey(true, "key");
  EXPECT_EQ(modeOf(directory()), 0755U);
  EXPECT_EQ(readFile(directory() / "settings.ini"), "x");
}

TEST_F(DefaultsFiles, AHomeReachedThroughASymbolicLinkWorks) {
  fs::create_directories(home_.path() / "elsewhere");
  fs::create_directory_symlink(home_.path() / "elsewhere", home_.path() / "config");
  openStore()->setBoolForKey(true, "key");
  EXPECT_TRUE(openStore()->boolForKey("key"));
  EXPECT_TRUE(fs::is_regular_file(home_.path() / "elsewhere/application/user-defaults.db"));
}

}  // namespace
