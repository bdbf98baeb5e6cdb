// User defaults where nothing can be written.

#include <sys/resource.h>

#include <csignal>
#include <string>

#include "defaults_files.h"
#include "support/printers.h"
#include "support/processes/child_process.h"
#include "support/processes/own_mounts.h"

namespace {

namespace fs = std::filesystem;

class UnwritableDefaults : public DefaultsFiles {};

TEST_F(UnwritableDefaults, NoHomeMeansMemoryOnly) {
  ov::PersistentDefaults defaults("");
  EXPECT_EQ(integer(defaults, "key"), -1);
  setInteger(defaults, 5, "key");
  EXPECT_EQ(integer(defaults, "key"), 5);
  EXPECT_FALSE(defaults.synchronize());
  EXPECT_EQ(log_->lines().size(), 1U);
}

TEST_F(UnwritableDefaults, AHomeThatCannotBeMadeMeansMemoryOnly) {
  writeFile(home_.path() / "config", "a file in the way");
  expectWorksInMemory();
  EXPECT_EQ(readFile(home_.path() / "config"), "a file in the way");
}

TEST_F(UnwritableDefaults, WhatStayedInMemoryIsWrittenOnceItCanBe) {
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

/// From now on no file of this process may become longer.
void limitFiles(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit = {};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = bytes;
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(UnwritableDefaults, AFullDiskMeansMemoryOnlyUntilThereIsRoom) {
  fs::create_directories(directory());
  ChildProcess process([this] {
    const bool isMounted = mountSmallDisk(directory(), 200'000);
    setInteger(*openStore(), 1, "before");
    if (!isMounted) limitFiles(200'000);
    const auto defaults = openStore();
    const auto large = OVData::dataWithText(std::string(1'000'000, 'x'));
    defaults->setObjectForKey(large, "large");
    EXPECT_EQ(defaults->objectForKey("large"), large);
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_THAT(log_->lines(), testing::SizeIs(1));
    EXPECT_EQ(integer(*openStore(), "before"), 1);
    EXPECT_EQ(openStore()->objectForKey("large"), nullptr);

    if (isMounted) {
      EXPECT_TRUE(resizeSmallDisk(directory(), 10'000'000));
    } else {
      limitFiles(RLIM_INFINITY);
    }
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_NE(openStore()->objectForKey("large"), nullptr);
    EXPECT_EQ(integer(*openStore(), "before"), 1);
    return !HasFailure();
  });
  EXPECT_TRUE(process.succeeded());
}

TEST_F(UnwritableDefaults, ADiskMayBeFullAtAnyPoint) {
  for (const int room :
       {0, 1, 100, 4095, 4096, 8192, 12287, 12288, 16384, 20000, 32767, 32768, 40000, 80000}) {
    SCOPED_TRACE(room);
    fs::remove_all(directory());
    ChildProcess process([this, room] {
      const auto defaults = openStore();
      limitFiles(static_cast<rlim_t>(room));
      for (int i = 0; i < 20; ++i) setInteger(*defaults, i, std::to_string(i));
      const bool isStored = defaults->synchronize();
      EXPECT_EQ(isStored, log_->lines().empty());
      EXPECT_EQ(integer(*openStore(), "19"), isStored ? 19 : -1);
      EXPECT_EQ(integer(*defaults, "19"), 19);

      limitFiles(RLIM_INFINITY);
      EXPECT_TRUE(defaults->synchronize());
      for (int i = 0; i < 20; ++i) EXPECT_EQ(integer(*openStore(), std::to_string(i)), i);
      EXPECT_FALSE(fs::exists(aside(1)));
      return !HasFailure();
    });
    EXPECT_TRUE(process.succeeded());
  }
}

TEST_F(UnwritableDefaults, AReadOnlyHomeMeansMemoryOnly) {
  fs::create_directories(home_.path() / "config");
  ChildProcess process([this] {
    makeReadOnly(home_.path());
    expectWorksInMemory();
    return !HasFailure();
  });
  EXPECT_TRUE(process.succeeded());
  makeWritable(home_.path());
}

TEST_F(UnwritableDefaults, WhatAReadOnlyHomeHoldsIsRead) {
  setInteger(*openStore(), 1, "before");
  EXPECT_TRUE(openStore()->synchronize());
  setInteger(*openStore(), 2, "later");
  ChildProcess process([this] {
    makeReadOnly(home_.path());
    const auto defaults = openStore();
    EXPECT_EQ(integer(*defaults, "before"), 1);
    EXPECT_EQ(integer(*defaults, "later"), 2);
    setInteger(*defaults, 3, "before");
    EXPECT_EQ(integer(*defaults, "before"), 3);
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_THAT(log_->lines(), testing::SizeIs(1));
    return !HasFailure();
  });
  EXPECT_TRUE(process.succeeded());
  makeWritable(home_.path());
}

TEST_F(UnwritableDefaults, AFullDiskLeavesNoUnfinishedDatabase) {
  ChildProcess process([this] {
    limitFiles(1000);
    const auto defaults = openStore();
    setInteger(*defaults, 1, "key");
    return !defaults->synchronize() && integer(*defaults, "key") == 1;
  });
  EXPECT_TRUE(process.succeeded());
  EXPECT_TRUE(fs::is_empty(directory()));
}

}  // namespace
