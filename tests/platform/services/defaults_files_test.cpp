// The files of the user defaults: who may read them, and what may stand in their way.

#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <string>
#include <vector>

#include <OVAddressBookSDK/data.h>

#include "platform/services/deadline.h"
#include "platform/services/sqlite.h"
#include "stored_defaults.h"
#include "support/child_process.h"
#include "support/printers.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

unsigned modeOf(const fs::path& path) {
  return static_cast<unsigned>(fs::status(path).permissions());
}

class DefaultsFiles : public StoredDefaults {
 protected:
  [[nodiscard]] fs::path aside(int number, const std::string& suffix = "") const {
    return database().string() + ".aside-" + std::to_string(number) + suffix;
  }
  /// The store works on disk and has logged one line.
  void expectWorks() const {
    const auto defaults = openStore();
    setInteger(*defaults, 5, "works");
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(integer(*openStore(), "works"), 5);
    ASSERT_EQ(log_->lines().size(), 1U);
    EXPECT_THAT(log_->lines()[0].str(), HasSubstr(".aside-"));
  }
  /// The store works in memory only and has logged one line.
  void expectWorksInMemory() const {
    const auto defaults = openStore();
    EXPECT_EQ(integer(*defaults, "key"), -1);
    setInteger(*defaults, 5, "key");
    setInteger(*defaults, 6, "other");
    EXPECT_EQ(integer(*defaults, "key"), 5);
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_EQ(integer(*defaults, "key"), 5);
    EXPECT_EQ(integer(*defaults, "other"), 6);
    ASSERT_EQ(log_->lines().size(), 1U);
    EXPECT_THAT(log_->lines()[0].str(), HasSubstr("stay in memory"));
  }
  void fillDatabase(int entries) const {
    const auto defaults = openStore();
    for (int i = 0; i < entries; ++i) {
      defaults->setObjectForKey(OVData::dataWithText(std::string(1000, 'x')), std::to_string(i));
    }
    EXPECT_TRUE(defaults->synchronize());
  }
};

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

TEST_F(DefaultsFiles, NoHomeMeansMemoryOnly) {
  ov::PersistentDefaults defaults("");
  EXPECT_EQ(integer(defaults, "key"), -1);
  setInteger(defaults, 5, "key");
  EXPECT_EQ(integer(defaults, "key"), 5);
  EXPECT_FALSE(defaults.synchronize());
  EXPECT_EQ(log_->lines().size(), 1U);
}

TEST_F(DefaultsFiles, AHomeThatCannotBeMadeMeansMemoryOnly) {
  writeFile(home_.path() / "config", "a file in the way");
  expectWorksInMemory();
  EXPECT_EQ(readFile(home_.path() / "config"), "a file in the way");
}

TEST_F(DefaultsFiles, WhatStayedInMemoryIsWrittenOnceItCanBe) {
  writeFile(home_.path() / "config", "a file in the way");
  const auto defaults = openStore();
  setInteger(*defaults, 5, "key");
  EXPECT_FALSE(defaults->synchronize());
  fs::remove(home_.path() / "config");
  setInteger(*defaults, 6, "other");
  EXPECT_EQ(integer(*openStore(), "key"), 5);
  EXPECT_EQ(integer(*openStore(), "other"), 6);
  EXPECT_TRUE(defaults->synchronize());
}

TEST_F(DefaultsFiles, AFullDiskMeansMemoryOnlyUntilThereIsRoom) {
  setInteger(*openStore(), 1, "before");
  ChildProcess process([this] {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = {};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full = {100'000, limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    const auto defaults = openStore();
    const auto large = OVData::dataWithText(std::string(1'000'000, 'x'));
    defaults->setObjectForKey(large, "large");
    const bool inMemory = defaults->objectForKey("large") == large && !defaults->synchronize() &&
                          log_->lines().size() == 1 && integer(*openStore(), "before") == 1 &&
                          openStore()->objectForKey("large") == nullptr;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    return inMemory && defaults->synchronize();
  });
  EXPECT_TRUE(process.succeeded());
  const auto read = openStore();
  EXPECT_NE(read->objectForKey("large"), nullptr);
  EXPECT_EQ(integer(*read, "before"), 1);
}

TEST_F(DefaultsFiles, AFullDiskLeavesNoUnfinishedDatabase) {
  ChildProcess process([this] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full = {1000, 1000};
    ::setrlimit(RLIMIT_FSIZE, &full);
    const auto defaults = openStore();
    setInteger(*defaults, 1, "key");
    return !defaults->synchronize() && integer(*defaults, "key") == 1;
  });
  EXPECT_TRUE(process.succeeded());
  EXPECT_TRUE(fs::is_empty(directory()));
}

TEST_F(DefaultsFiles, AForeignFileIsMovedAside) {
  fs::create_directories(directory());
  const std::string content = "not a database, but somebody's " + std::string(2000, '!');
  writeFile(database(), content);
  expectWorks();
  EXPECT_EQ(readFile(aside(1)), content);
}

TEST_F(DefaultsFiles, AForeignFileIsMovedAsideWhenItIsRead) {
  fs::create_directories(directory());
  writeFile(database(), std::string(2000, '!'));
  EXPECT_FALSE(openStore()->boolForKey("key"));
  EXPECT_FALSE(fs::exists(database()));
  EXPECT_TRUE(fs::exists(aside(1)));
  EXPECT_EQ(log_->lines().size(), 1U);
}

TEST_F(DefaultsFiles, AnEmptyFileIsMovedAside) {
  fs::create_directories(directory());
  writeFile(database(), "");
  expectWorks();
  EXPECT_EQ(readFile(aside(1)), "");
}

TEST_F(DefaultsFiles, WhatWasMovedEarlierIsNeverOverwritten) {
  fs::create_directories(directory());
  for (const char* content : {"first", "second", "third"}) {
    writeFile(database(), content + std::string(2000, '!'));
    openStore()->setBoolForKey(true, "key");
  }
  EXPECT_THAT(readFile(aside(1)), testing::StartsWith("first"));
  EXPECT_THAT(readFile(aside(2)), testing::StartsWith("second"));
  EXPECT_THAT(readFile(aside(3)), testing::StartsWith("third"));
}

TEST_F(DefaultsFiles, ATruncatedDatabaseIsMovedAside) {
  fillDatabase(100);
  fs::resize_file(database(), 20'000);
  expectWorks();
  EXPECT_EQ(fs::file_size(aside(1)), 20'000U);
}

TEST_F(DefaultsFiles, ADatabaseCutInItsHeaderIsMovedAside) {
  fillDatabase(1);
  fs::resize_file(database(), 60);
  expectWorks();
  EXPECT_EQ(fs::file_size(aside(1)), 60U);
}

TEST_F(DefaultsFiles, ADatabaseWithADamagedPageIsMovedAside) {
  fillDatabase(100);
  std::string content = readFile(database());
  content.replace(4096, content.size() - 4096, content.size() - 4096, '\xEE');
  writeFile(database(), content);
  expectWorks();
  EXPECT_EQ(readFile(aside(1)), content);
}

TEST_F(DefaultsFiles, ADatabaseOfAnotherProgramIsMovedAside) {
  fs::create_directories(directory());
  writeFile(database(), "");
  ov::Deadline deadline(std::chrono::seconds(10));
  ov::sqlite::Database(database().string(), deadline)
      .execute("CREATE TABLE defaults (key, kind, value); PRAGMA application_id = 7");
  expectWorks();
  EXPECT_TRUE(fs::exists(aside(1)));
}

TEST_F(DefaultsFiles, ADatabaseWithOtherTablesIsMovedAside) {
  fillDatabase(1);
  ov::Deadline deadline(std::chrono::seconds(10));
  ov::sqlite::Database(database().string(), deadline)
      .execute("DROP TABLE defaults; CREATE TABLE other (x)");
  expectWorks();
  EXPECT_TRUE(fs::exists(aside(1)));
}

TEST_F(DefaultsFiles, ADatabaseThatBreaksWhileItIsInUseIsMovedAside) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  EXPECT_TRUE(defaults->synchronize());
  writeFile(database(), std::string(2000, '!'));
  setInteger(*defaults, 2, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 2);
  EXPECT_TRUE(defaults->synchronize());
  EXPECT_EQ(log_->lines().size(), 1U);
}

TEST_F(DefaultsFiles, ADatabaseThatIsRemovedWhileItIsInUseIsMadeAnew) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  fs::remove_all(directory());
  setInteger(*defaults, 2, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 2);
}

TEST_F(DefaultsFiles, ALogWithoutItsDatabaseIsNotTakenForTheNewOnes) {
  setInteger(*openStore(), 1, "key");
  fs::remove(database());
  ASSERT_GT(fs::file_size(database().string() + "-wal"), 0U);
  expectWorks();
  EXPECT_EQ(integer(*openStore(), "key"), -1);
  EXPECT_TRUE(fs::exists(aside(1, "-wal")));
}

TEST_F(DefaultsFiles, ASymbolicLinkIsMovedAsideAndNotFollowed) {
  const TemporaryFolder elsewhere;
  fs::create_directories(directory());
  fs::create_symlink(elsewhere.at("target"), database());
  expectWorks();
  EXPECT_FALSE(fs::exists(elsewhere.at("target")));
  EXPECT_EQ(fs::read_symlink(aside(1)), elsewhere.at("target"));
}

TEST_F(DefaultsFiles, ASymbolicLinkToADatabaseIsNotFollowedEither) {
  setInteger(*openStore(), 1, "key");
  ASSERT_TRUE(openStore()->synchronize());
  const TemporaryFolder elsewhere;
  fs::rename(database(), elsewhere.at("target"));
  fs::remove(database().string() + "-wal");
  fs::remove(database().string() + "-shm");
  const std::string content = readFile(elsewhere.at("target"));
  fs::create_symlink(elsewhere.at("target"), database());
  EXPECT_EQ(integer(*openStore(), "key"), -1);
  expectWorks();
  EXPECT_EQ(readFile(elsewhere.at("target")), content);
}

TEST_F(DefaultsFiles, SymbolicLinksBesideTheDatabaseAreNotFollowed) {
  for (const char* suffix : {"-wal", "-shm"}) {
    setInteger(*openStore(), 1, "key");
    ASSERT_TRUE(openStore()->synchronize());
    const TemporaryFolder elsewhere;
    fs::remove(database().string() + suffix);
    fs::create_symlink(elsewhere.at("target"), database().string() + suffix);
    EXPECT_EQ(integer(*openStore(), "key"), 1) << suffix;
    setInteger(*openStore(), 2, "key");
    EXPECT_EQ(integer(*openStore(), "key"), 2) << suffix;
    EXPECT_FALSE(fs::exists(elsewhere.at("target"))) << suffix;
  }
}

TEST_F(DefaultsFiles, ALinkUnderTheNameOfTheUnfinishedDatabaseIsNotFollowed) {
  const TemporaryFolder elsewhere;
  writeFile(elsewhere.at("target"), "x");
  fs::create_directories(directory());
  fs::create_symlink(elsewhere.at("target"), database().string() + ".new");
  setInteger(*openStore(), 1, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 1);
  EXPECT_EQ(readFile(elsewhere.at("target")), "x");
}

TEST_F(DefaultsFiles, AFolderInTheWayIsMovedAside) {
  fs::create_directories(database());
  writeFile(database() / "inside", "x");
  expectWorks();
  EXPECT_EQ(readFile(aside(1) / "inside"), "x");
}

TEST_F(DefaultsFiles, APipeInTheWayIsMovedAside) {
  fs::create_directories(directory());
  ASSERT_EQ(::mkfifo(database().c_str(), 0600), 0);
  expectWorks();
  EXPECT_TRUE(fs::is_fifo(aside(1)));
}

}  // namespace
