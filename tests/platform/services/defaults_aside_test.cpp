// What is not a valid database of the user defaults is moved aside.

#include <chrono>
#include <string>

#include "defaults_files.h"
#include "platform/services/deadline.h"
#include "platform/services/sqlite.h"
#include "support/printers.h"

namespace {

namespace fs = std::filesystem;

class DefaultsMovedAside : public DefaultsFiles {};

TEST_F(DefaultsMovedAside, AForeignFileIsMovedAside) {
  fs::create_directories(directory());
  const std::string content = "not a database, but somebody's " + std::string(2000, '!');
  writeFile(database(), content);
  expectWorks();
  EXPECT_EQ(readFile(aside(1)), content);
}

TEST_F(DefaultsMovedAside, AForeignFileIsMovedAsideWhenItIsRead) {
  fs::create_directories(directory());
  writeFile(database(), std::string(2000, '!'));
  EXPECT_FALSE(openStore()->boolForKey("key"));
  EXPECT_FALSE(fs::exists(database()));
  EXPECT_TRUE(fs::exists(aside(1)));
  EXPECT_EQ(log_->lines().size(), 1U);
}

TEST_F(DefaultsMovedAside, AnEmptyFileIsMovedAside) {
  fs::create_directories(directory());
  writeFile(database(), "");
  expectWorks();
  EXPECT_EQ(readFile(aside(1)), "");
}

TEST_F(DefaultsMovedAside, WhatWasMovedEarlierIsNeverOverwritten) {
  fs::create_directories(directory());
  for (const char* content : {"first", "second", "third"}) {
    writeFile(database(), content + std::string(2000, '!'));
    openStore()->setBoolForKey(true, "key");
  }
  EXPECT_THAT(readFile(aside(1)), testing::StartsWith("first"));
  EXPECT_THAT(readFile(aside(2)), testing::StartsWith("second"));
  EXPECT_THAT(readFile(aside(3)), testing::StartsWith("third"));
}

TEST_F(DefaultsMovedAside, ATruncatedDatabaseIsMovedAside) {
  fillDatabase(100);
  fs::resize_file(database(), 20'000);
  expectWorks();
  EXPECT_EQ(fs::file_size(aside(1)), 20'000U);
}

TEST_F(DefaultsMovedAside, ADatabaseCutInItsHeaderIsMovedAside) {
  fillDatabase(1);
  fs::resize_file(database(), 60);
  expectWorks();
  EXPECT_EQ(fs::file_size(aside(1)), 60U);
}

TEST_F(DefaultsMovedAside, ADatabaseWithADamagedPageIsMovedAside) {
  fillDatabase(100);
  std::string content = readFile(database());
  content.replace(4096, content.size() - 4096, content.size() - 4096, '\xEE');
  writeFile(database(), content);
  expectWorks();
  EXPECT_EQ(readFile(aside(1)), content);
}

TEST_F(DefaultsMovedAside, ADatabaseOfAnotherProgramIsMovedAside) {
  fs::create_directories(directory());
  writeFile(database(), "");
  ov::Deadline deadline(std::chrono::seconds(10));
  ov::sqlite::Database(database().string(), deadline)
      .execute("CREATE TABLE defaults (key, kind, value); PRAGMA application_id = 7");
  expectWorks();
  EXPECT_TRUE(fs::exists(aside(1)));
}

TEST_F(DefaultsMovedAside, ADatabaseWithOtherTablesIsMovedAside) {
  fillDatabase(1);
  ov::Deadline deadline(std::chrono::seconds(10));
  ov::sqlite::Database(database().string(), deadline)
      .execute("DROP TABLE defaults; CREATE TABLE other (x)");
  expectWorks();
  EXPECT_TRUE(fs::exists(aside(1)));
}

TEST_F(DefaultsMovedAside, ADatabaseThatBreaksWhileItIsInUseIsMovedAside) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  EXPECT_TRUE(defaults->synchronize());
  writeFile(database(), std::string(2000, '!'));
  setInteger(*defaults, 2, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 2);
  EXPECT_TRUE(defaults->synchronize());
  EXPECT_EQ(log_->lines().size(), 1U);
}

TEST_F(DefaultsMovedAside, ADatabaseThatIsRemovedWhileItIsInUseIsMadeAgain) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  fs::remove_all(directory());
  setInteger(*defaults, 2, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 2);
}

TEST_F(DefaultsMovedAside, ALogWithoutItsDatabaseIsNotTakenForTheNewOnes) {
  setInteger(*openStore(), 1, "key");
  fs::remove(database());
  ASSERT_GT(fs::file_size(database().string() + "-wal"), 0U);
  expectWorks();
  EXPECT_EQ(integer(*openStore(), "key"), -1);
  EXPECT_TRUE(fs::exists(aside(1, "-wal")));
}

}  // namespace
