#pragma once

#include <chrono>
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
};

}  // namespace ov::eds
