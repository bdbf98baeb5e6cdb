// User defaults that several processes and threads read and set.

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/services/deadline.h"
#include "stored_defaults.h"
#include "support/printers.h"
#include "support/processes/child_process.h"

namespace {

class SharedDefaults : public StoredDefaults {};

TEST_F(SharedDefaults, AnObjectThatAnotherHasSetIsReadAtOnce) {
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

TEST_F(SharedDefaults, APreferenceThatAnotherHasSetIsReadSoon) {
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

TEST_F(SharedDefaults, WhatAnotherHasSetDoesNotHideWhatIsNotSavedYet) {
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

TEST_F(SharedDefaults, ADatabaseThatAnotherHasMovedAsideIsLeft) {
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

TEST_F(SharedDefaults, AThreadThatReadsNeverMissesWhatThisProcessHasSet) {
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

}  // namespace
