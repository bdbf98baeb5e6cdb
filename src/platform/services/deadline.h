#pragma once

#include <algorithm>
#include <chrono>
#include <thread>

namespace ov {

/// How long one call may wait for other processes, over all that it waits for.
class Deadline {
 public:
  explicit Deadline(std::chrono::milliseconds wait) : end_(Clock::now() + wait) {}

  /// Waits a little before another try; false when the time is over.
  [[nodiscard]] bool pause() {
    const auto left = end_ - Clock::now();
    if (left <= Clock::duration::zero()) return false;
    std::this_thread::sleep_for(std::min<Clock::duration>(left, step_));
    step_ = std::min(2 * step_, std::chrono::milliseconds(20));
    return true;
  }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point end_;
  std::chrono::milliseconds step_{1};
};

}  // namespace ov
