#pragma once

#include <atomic>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

/// Calls `write` with 0, 1, 2, ... while seven other threads call `read`, which must always be
/// true.
template <class Read, class Write>
void expectWholeWhileChanging(Read read, Write write) {
  constexpr int kRounds = 2000;
  constexpr int kReaders = 7;
  std::atomic<int> started = 0;
  std::atomic<bool> done = false;
  std::atomic<bool> allWhole = true;
  {
    std::vector<std::jthread> readers;
    for (int i = 0; i < kReaders; ++i) {
      readers.emplace_back([&] {
        bool isFirst = true;
        do {
          if (!read()) allWhole = false;
          if (std::exchange(isFirst, false)) ++started;
        } while (!done);
      });
    }
    while (started < kReaders) std::this_thread::yield();
    for (int i = 0; i < kRounds; ++i) write(i);
    done = true;
  }
  EXPECT_TRUE(allWhole);
}
