// User defaults shared by processes that die, fork and stop.

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "platform/services/deadline.h"
#include "platform/services/directory.h"
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
  std::int64_t reached = 0;
  setInteger(*openStore(), reached, "key");
  for (int round = 0; round < 20; ++round) {
    Pipe pipe;
    ChildProcess process([&] {
      const auto defaults = openStore();
      for (std::int64_t value = reached + 1;; ++value) {
        setInteger(*defaults, value, "key");
        pipe.write("x");
        if (value % 7 == 0 && !defaults->synchronize()) return false;
      }
    });
    std::string returned;
    while (returned.size() < static_cast<std::size_t>(round)) returned += pipe.read();
    process.kill();
    returned += pipe.readAll();
    const std::int64_t stored = integer(*openStore(), "key");
    EXPECT_GE(stored, reached + static_cast<std::int64_t>(returned.size()));
    EXPECT_LE(stored, reached + static_cast<std::int64_t>(returned.size()) + 1);
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
  std::vector<ChildProcess> processes;
  processes.reserve(8);
  for (int number = 0; number < 8; ++number) {
    processes.emplace_back([this, number] {
      setInteger(*openStore(), number, std::to_string(number));
      return true;
    });
  }
  for (auto& process : processes) EXPECT_TRUE(process.succeeded());
  for (int number = 0; number < 8; ++number) {
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

TEST_F(DefaultsProcesses, AnObjectThatAnotherHasSetIsReadAtOnce) {
  const auto defaults = openStore();
  EXPECT_EQ(integer(*defaults, "key"), -1);
  for (std::int64_t value = 1; value < 20; ++value) {
    ChildProcess process([&] {
      setInteger(*openStore(), value, "key");
      return true;
    });
    EXPECT_TRUE(process.succeeded());
    EXPECT_EQ(integer(*defaults, "key"), value);
    setInteger(*openStore(), -value, "key");
    EXPECT_EQ(integer(*defaults, "key"), -value);
  }
  const auto other = openStore();
  other->setObjectForKey(nullptr, "key");
  EXPECT_EQ(defaults->objectForKey("key"), nullptr);
}

TEST_F(DefaultsProcesses, APreferenceThatAnotherHasSetIsReadSoon) {
  const auto defaults = openStore();
  EXPECT_FALSE(defaults->boolForKey("flag"));
  ChildProcess process([&] {
    openStore()->setBoolForKey(true, "flag");
    openStore()->setObjectForKey(OVString("fr"), "text");
    return true;
  });
  EXPECT_TRUE(process.succeeded());
  ov::Deadline deadline(std::chrono::minutes(1));
  while (!defaults->boolForKey("flag") && deadline.pause()) {
  }
  EXPECT_TRUE(defaults->boolForKey("flag"));
  while (defaults->stringForKey("text").isNull() && deadline.pause()) {
  }
  EXPECT_EQ(defaults->stringForKey("text"), "fr");
}

TEST_F(DefaultsProcesses, WhatAnotherHasSetDoesNotHideWhatIsNotSavedYet) {
  const auto defaults = openHurriedStore();
  setInteger(*defaults, 1, "key");
  {
    const ChildProcess holder = stoppedWriter();
    setInteger(*defaults, 2, "key");
  }
  setInteger(*openStore(), 3, "key");
  setInteger(*openStore(), 3, "other");
  EXPECT_EQ(integer(*defaults, "other"), 3);
  EXPECT_EQ(integer(*defaults, "key"), 2);
}

TEST_F(DefaultsProcesses, ADatabaseThatAnotherHasMovedAsideIsLeft) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  EXPECT_EQ(integer(*defaults, "key"), 1);
  std::filesystem::rename(directory(), home_.path() / "elsewhere");
  EXPECT_EQ(integer(*defaults, "key"), -1);
  setInteger(*openStore(), 2, "key");
  EXPECT_EQ(integer(*defaults, "key"), 2);
  setInteger(*defaults, 3, "key");
  EXPECT_EQ(integer(*openStore(), "key"), 3);
}

TEST_F(DefaultsProcesses, AThreadThatReadsNeverMissesWhatThisProcessHasSet) {
  const auto defaults = openStore();
  setInteger(*defaults, 0, "key");
  std::atomic<bool> done = false;
  const std::jthread others([&] {
    const auto other = openStore();
    for (std::int64_t value = 0; !done; ++value) {
      setInteger(*other, value, "other");
      (void)defaults->objectForKey("other");
    }
  });
  for (std::int64_t value = 1; value < 200; ++value) {
    setInteger(*defaults, value, "key");
    EXPECT_EQ(integer(*defaults, "key"), value);
    defaults->setBoolForKey(value % 2 == 0, "flag");
    EXPECT_EQ(defaults->boolForKey("flag"), value % 2 == 0);
  }
  done = true;
}

TEST_F(DefaultsProcesses, AStoppedProcessWithTheLockDoesNotStopOthers) {
  const auto defaults = openHurriedStore();
  setInteger(*defaults, 1, "key");
  ChildProcess holder = stoppedWriter();
  setInteger(*defaults, 2, "key");
  EXPECT_EQ(integer(*defaults, "key"), 2);
  EXPECT_FALSE(defaults->synchronize());
  EXPECT_EQ(integer(*openStore(), "key"), 1);
  EXPECT_THAT(log_->lines(), testing::SizeIs(1));

  holder.kill();
  EXPECT_TRUE(defaults->synchronize());
  EXPECT_EQ(integer(*openStore(), "key"), 2);
}

TEST_F(DefaultsProcesses, WhatALockKeptBackIsWrittenWithTheNextSet) {
  const auto defaults = openHurriedStore();
  setInteger(*defaults, 1, "key");
  ChildProcess holder = stoppedWriter();
  setInteger(*defaults, 2, "key");
  defaults->setObjectForKey(nullptr, "absent");
  holder.kill();
  setInteger(*defaults, 3, "other");
  EXPECT_EQ(integer(*openStore(), "key"), 2);
  EXPECT_EQ(integer(*openStore(), "other"), 3);
}

TEST_F(DefaultsProcesses, NobodyUsesTheFilesWhileAProcessMayMoveThem) {
  const auto defaults = openHurriedStore();
  setInteger(*defaults, 1, "key");
  ChildProcess holder([this] {
    ov::Deadline deadline(std::chrono::seconds(10));
    const ov::Directory folder(directory().string());
    folder.lock(deadline);
    ::raise(SIGSTOP);
    return true;
  });
  holder.waitUntilStopped();
  setInteger(*defaults, 2, "key");
  EXPECT_FALSE(defaults->synchronize());
  EXPECT_EQ(integer(*openHurriedStore(), "key"), -1);
  holder.kill();
  EXPECT_EQ(integer(*openStore(), "key"), 1);
  EXPECT_TRUE(defaults->synchronize());
  EXPECT_EQ(integer(*openStore(), "key"), 2);
}

TEST_F(DefaultsProcesses, ReadingGoesOnWhileALockIsWaitedFor) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  EXPECT_EQ(integer(*defaults, "key"), 1);
  ChildProcess holder = stoppedWriter();
  std::thread writer([&] { setInteger(*defaults, 2, "key"); });
  while (integer(*defaults, "key") != 2) std::this_thread::yield();
  // The lock goes only after the value has been read: no reader waits for it.
  holder.kill();
  writer.join();
  EXPECT_EQ(integer(*openStore(), "key"), 2);
}

}  // namespace
