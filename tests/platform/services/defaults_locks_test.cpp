// User defaults while another process holds a lock.

#include <chrono>
#include <csignal>
#include <thread>

#include <gmock/gmock.h>

#include "platform/services/deadline.h"
#include "platform/services/directory.h"
#include "stored_defaults.h"
#include "support/printers.h"
#include "support/processes/child_process.h"

namespace {

class LockedDefaults : public StoredDefaults {};

TEST_F(LockedDefaults, AStoppedProcessWithTheLockDoesNotStopOthers) {
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

TEST_F(LockedDefaults, WhatALockKeptBackIsWrittenWithTheNextSet) {
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

TEST_F(LockedDefaults, NobodyUsesTheFilesWhileAProcessMayMoveThem) {
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

TEST_F(LockedDefaults, ReadingGoesOnWhileALockIsWaitedFor) {
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
