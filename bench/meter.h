#pragma once

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

/// Seconds of the processor that the process has taken so far.
[[nodiscard]] double processorSeconds();

/// Medians of all runs, and the memory of the first.
struct Cost {
  double seconds = 0;
  double processorSeconds = 0;
  std::size_t extraPeak = 0;  // above what was held before
};

[[nodiscard]] double median(std::vector<double> values);

/// Runs `operation` `runs` times; `forget` drops its result outside the timed part.
template <class Operation, class Forget>
Cost measure(int runs, Operation operation, Forget forget) {
  std::vector<double> seconds;
  std::vector<double> processor;
  Cost cost;
  for (int run = 0; run < runs; ++run) {
    settle();
    const std::size_t before = residentBytes();
    resetPeak();
    const auto start = std::chrono::steady_clock::now();
    const double processorStart = processorSeconds();
    operation();
    processor.push_back(processorSeconds() - processorStart);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    seconds.push_back(taken.count());
    if (run == 0) cost.extraPeak = peakBytes() - before;
    forget();
  }
  cost.seconds = median(seconds);
  cost.processorSeconds = median(processor);
  return cost;
}

}  // namespace bench
