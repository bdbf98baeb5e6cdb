#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

#include "glib_ptr.h"

namespace ov::eds {

/// Something that another thread gives once.
template <class T>
class Awaited {
 public:
  void give(T value) {
    {
      const std::lock_guard lock(mutex_);
      value_.emplace(std::move(value));
    }
    given_.notify_all();
  }

  /// Nothing when it has not come until then.
  std::optional<T> takeUntil(std::chrono::steady_clock::time_point time) {
    std::unique_lock lock(mutex_);
    given_.wait_until(lock, time, [&] { return value_.has_value(); });
    std::optional<T> taken = std::move(value_);
    value_.reset();
    return taken;
  }

 private:
  std::mutex mutex_;
  std::condition_variable given_;
  std::optional<T> value_;
};

/// What the service returned for a request that the session's thread made.
template <class Result>
struct Reply {
  Result result;
  Fault fault;
};

}  // namespace ov::eds
