#pragma once

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

/// Calls `write` with 0, 1, 2, ... while another thread calls `read`, which must always be true.
template <class Read, class Write>
void expectWholeWhileChanging(Read read, Write write) {
  constexpr int kRounds = 2000;
  std::atomic<bool> started = false;
  std::atomic<bool> done = false;
  bool allWhole = true;
  {
    const std::jthread reader([&] {
      do {
        allWhole = allWhole && read();
        started = true;
      } while (!done);
    });
    while (!started) std::this_thread::yield();
    for (int i = 0; i < kRounds; ++i) write(i);
    done = true;
  }
  EXPECT_TRUE(allWhole);
}
