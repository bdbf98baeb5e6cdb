#pragma once

#include <latch>
#include <thread>
#include <vector>

/// Calls `work` from eight threads that start as one, and returns what each got.
template <class Work>
auto fromEightThreads(Work work) {
  constexpr std::ptrdiff_t kThreads = 8;
  std::vector<decltype(work())> results(kThreads);
  std::latch start(kThreads);
  std::vector<std::jthread> threads;
  for (auto& result : results)
    threads.emplace_back([&] {
      start.arrive_and_wait();
      result = work();
    });
  threads.clear();
  return results;
}
