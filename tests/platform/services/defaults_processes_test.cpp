// User defaults of processes that die, fork and lack descriptors.

#include <unistd.h>

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "stored_defaults.h"
#include "support/printers.h"
#include "support/processes/child_process.h"

namespace {

class DefaultsProcesses : public StoredDefaults {};

TEST_F(DefaultsProcesses, ASetSurvivesTheDeathOfTheProcess) {
  Pipe pipe;
  ChildProcess process([&] {
    openStore()->setBoolForKey(true, "key");
    pipe.write("set");
    ::pause();
    return true;
  });
  EXPECT_EQ(pipe.read(), "set");
  process.kill();
  EXPECT_TRUE(openStore()->boolForKey("key"));
}

TEST_F(DefaultsProcesses, EachSetThatHasReturnedSurvivesADeathAtAnyMoment) {
  constexpr int kRounds = 20;
  constexpr std::int64_t kSetsPerSynchronize = 7;
  std::int64_t reached = 0;
  setInteger(*openStore(), reached, "key");
  for (int round = 0; round < kRounds; ++round) {
    Pipe pipe;
    ChildProcess process([&] {
      const auto defaults = openStore();
      for (std::int64_t value = reached + 1;; ++value) {
        setInteger(*defaults, value, "key");
        pipe.write("x");
        if (value % kSetsPerSynchronize == 0 && !defaults->synchronize()) return false;
      }
    });
    std::string returned;
    while (returned.size() < static_cast<std::size_t>(round)) returned += pipe.read();
    process.kill();
    returned += pipe.readAll();
    const std::int64_t stored = integer(*openStore(), "key");
    const std::int64_t known = reached + static_cast<std::int64_t>(returned.size());
    EXPECT_GE(stored, known);
    EXPECT_LE(stored, known + 1);  // the last one may not have returned
    reached = stored;
  }
  EXPECT_THAT(log_->lines(), testing::IsEmpty());
}

TEST_F(DefaultsProcesses, EightProcessesMaySetDifferentAndEqualKeys) {
  constexpr int kProcesses = 8;
  constexpr int kKeys = 25;
  std::vector<ChildProcess> processes;
  processes.reserve(kProcesses);
  for (int number = 0; number < kProcesses; ++number) {
    processes.emplace_back([this, number] {
      const auto defaults = openStore();
      for (int key = 0; key < kKeys; ++key) {
        setInteger(*defaults, number, "own " + std::to_string(number * kKeys + key));
        setInteger(*defaults, number, "shared");
      }
      return defaults->synchronize() && log_->lines().empty();
    });
  }
  for (auto& process : processes) EXPECT_TRUE(process.succeeded());
  const auto read = openStore();
  for (int key = 0; key < kProcesses * kKeys; ++key) {
    EXPECT_EQ(integer(*read, "own " + std::to_string(key)), key / kKeys);
  }
  EXPECT_GE(integer(*read, "shared"), 0);
  EXPECT_LT(integer(*read, "shared"), kProcesses);
}

TEST_F(DefaultsProcesses, ProcessesThatAllFindAForeignFileMoveItAsideOnce) {
  std::filesystem::create_directories(directory());
  writeFile(database(), std::string(2000, '!'));
  constexpr int kProcesses = 8;
  std::vector<ChildProcess> processes;
  processes.reserve(kProcesses);
  for (int number = 0; number < kProcesses; ++number) {
    processes.emplace_back([this, number] {
      setInteger(*openStore(), number, std::to_string(number));
      return true;
    });
  }
  for (auto& process : processes) EXPECT_TRUE(process.succeeded());
  for (int number = 0; number < kProcesses; ++number) {
    EXPECT_EQ(integer(*openStore(), std::to_string(number)), number);
  }
  EXPECT_TRUE(std::filesystem::exists(database().string() + ".aside-1"));
  EXPECT_FALSE(std::filesystem::exists(database().string() + ".aside-2"));
}

TEST_F(DefaultsProcesses, AForkedChildReadsAndSetsAsItsParentDoes) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "parent");
  Pipe toChild;
  Pipe toParent;
  ChildProcess child([&] {
    setInteger(*defaults, 2, "child");
    toParent.write("set");
    if (toChild.read() != "go on") return false;
    setInteger(*defaults, 4, "child again");
    return integer(*defaults, "parent") == 1 && defaults->synchronize() &&
           integer(*defaults, "parent again") == 3;
  });
  EXPECT_EQ(toParent.read(), "set");
  setInteger(*defaults, 3, "parent again");
  toChild.write("go on");
  EXPECT_TRUE(child.succeeded());
  EXPECT_TRUE(defaults->synchronize());
  EXPECT_EQ(integer(*defaults, "child"), 2);
  const auto read = openStore();
  EXPECT_EQ(integer(*read, "parent"), 1);
  EXPECT_EQ(integer(*read, "child"), 2);
  EXPECT_EQ(integer(*read, "parent again"), 3);
  EXPECT_EQ(integer(*read, "child again"), 4);
}

TEST_F(DefaultsProcesses, AProcessMayHaveNoStandardFiles) {
  ChildProcess process([this] {
    for (const int number : {0, 1, 2}) ::close(number);
    const auto defaults = openStore();
    setInteger(*defaults, 1, "key");
    return defaults->synchronize() && integer(*openStore(), "key") == 1;
  });
  EXPECT_TRUE(process.succeeded());
  EXPECT_EQ(integer(*openStore(), "key"), 1);
}

std::ptrdiff_t descriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(DefaultsProcesses, NoForkInheritsADescriptor) {
  const auto before = descriptors();
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  EXPECT_TRUE(defaults->synchronize());
  EXPECT_EQ(integer(*defaults, "key"), 1);
  ChildProcess child([&] { return descriptors() == before; });
  EXPECT_TRUE(child.succeeded());
}

TEST_F(DefaultsProcesses, NoDescriptorIsLeftWhenTheStoreIsGone) {
  const auto before = descriptors();
  {
    const auto defaults = openStore();
    setInteger(*defaults, 1, "key");
    EXPECT_EQ(integer(*defaults, "key"), 1);
  }
  EXPECT_EQ(descriptors(), before);
}

}  // namespace
