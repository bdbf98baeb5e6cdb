#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace bench {

/// Bytes of memory that the process holds, and the most it ever held since `resetPeak`.
[[nodiscard]] std::size_t residentBytes();
[[nodiscard]] std::size_t peakBytes();
void resetPeak();
/// Gives freed memory back to the system, so that the numbers above mean something.
void settle();

struct Cost {
  double seconds = 0;         // median
  std::size_t extraPeak = 0;  // memory above what was held before the first run
};

/// Runs `operation` `runs` times; `forget` drops its result outside the timed part.
template <class Operation, class Forget>
Cost measure(int runs, Operation operation, Forget forget) {
  std::vector<double> seconds;
  Cost cost;
  for (int run = 0; run < runs; ++run) {
    settle();
    const std::size_t before = residentBytes();
    resetPeak();
    const auto start = std::chrono::steady_clock::now();
    operation();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    seconds.push_back(taken.count());
    if (run == 0) cost.extraPeak = peakBytes() - before;
    forget();
  }
  std::nth_element(seconds.begin(), seconds.begin() + runs / 2, seconds.end());
  cost.seconds = seconds[static_cast<std::size_t>(runs) / 2];
  return cost;
}

}  // namespace bench
