#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>

namespace ovbook {

/// Shows on a terminal how far a long task is. Nothing appears while the task is younger than half
/// a second; the bar's line is wiped when the bar goes.
class ProgressBar {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Clock = std::function<Time()>;

  /// `terminal` outlives the bar. `task` precedes the bar: one short, printable text.
  ProgressBar(std::ostream& terminal, std::string task,
              Clock clock = &std::chrono::steady_clock::now);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  /// `done` of `total` is done; more than all counts as all, and all of nothing as nothing.
  void show(std::uint64_t done, std::uint64_t total);

 private:
  std::ostream& terminal_;
  std::string task_;
  Clock clock_;
  Time next_;
  unsigned shownPercent_ = 0;
  bool isVisible_ = false;
};

}  // namespace ovbook
