#pragma once

#include <chrono>
#include <functional>
#include <stop_token>

namespace ov::eds {

/// How long a call to the service may take, and how it is stopped.
///
/// A call that makes several requests, one for each hundred cards that it writes, gives each of
/// them the whole time. What has been acknowledged when time runs out stays written.
struct Call {
  /// Zero and less leave no time at all.
  std::chrono::milliseconds deadline{std::chrono::seconds(30)};
  /// Any thread may ask for the stop; the call then returns at once.
  std::stop_token stop = {};
  /// Runs each request that a book makes for the call, on the thread of the call; empty to just run
  /// it. Until it returns, the book is as it was: a program whose windows show the book lets their
  /// thread read it meanwhile. It runs `request` once, and returns when that has.
  std::function<void(const std::function<void()>& request)> around = {};
};

}  // namespace ov::eds
