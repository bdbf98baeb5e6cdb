// Symbolic links, folders and pipes in the place of the user defaults.

#include <sys/stat.h>

#include <string>

#include "defaults_files.h"
#include "support/printers.h"

namespace {

namespace fs = std::filesystem;

class DefaultsLinks : public DefaultsFiles {};

TEST_F(DefaultsLinks, ASymbolicLinkIsMovedAsideAndNotFollowed) {
  const TemporaryFolder elsewhere;
  fs::create_directories(directory());
  fs::create_symlink(elsewhere.at("target"), database());
  expectWorks();
  EXPECT_FALSE(fs::exists(elsewhere.at("target")));
  EXPECT_EQ(fs::read_symlink(aside(1)), elsewhere.at("target"));
}

TEST_F(DefaultsLinks, ASymbolicLinkToADatabaseIsNotFollowedEither) {
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

TEST_F(DefaultsLinks, SymbolicLinksBesideTheDatabaseAreNotFollowed) {
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

TEST_F(DefaultsLinks, ALinkUnderTheNameOfTheUnfinishedDatabaseIsNotFollowed) {
  const TemporaryFolder elsewhere;
  writeFile(elsewhere.at("target"), "x");
  fs::create_directories(directory());
  fs::create_symlink(elsewhere.at("target"), database().string() + ".new");
  setInteger(*openStore(), 1, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 1);
  EXPECT_EQ(readFile(elsewhere.at("target")), "x");
}

TEST_F(DefaultsLinks, WhatAnInterruptedMakingLeftIsRemoved) {
  fs::create_directories(directory());
  const std::string unfinished = database().string() + ".new";
  for (const char* suffix : {"", "-journal", "-wal", "-shm"}) writeFile(unfinished + suffix, "x");
  setInteger(*openStore(), 1, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 1);
  for (const char* suffix : {"", "-journal", "-wal", "-shm"})
    EXPECT_FALSE(fs::exists(unfinished + suffix)) << suffix;
}

TEST_F(DefaultsLinks, AFolderInTheWayIsMovedAside) {
  fs::create_directories(database());
  writeFile(database() / "inside", "x");
  expectWorks();
  EXPECT_EQ(readFile(aside(1) / "inside"), "x");
}

TEST_F(DefaultsLinks, APipeInTheWayIsMovedAside) {
  fs::create_directories(directory());
  ASSERT_EQ(::mkfifo(database().c_str(), 0600), 0);
  expectWorks();
  EXPECT_TRUE(fs::is_fifo(aside(1)));
}

}  // namespace
