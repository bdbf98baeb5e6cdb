#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

#include "glib_ptr.h"
#include "service_call.h"

namespace ov::eds {

/// Something that another thread gives once.
template <class T>
class Awaited {
 public:
  void give(T value) {
    // Whoever waits may destroy this as soon as the lock is free.
    const std::lock_guard lock(mutex_);
    value_.emplace(std::move(value));
    given_.notify_all();
  }

  /// Waits for it, until the call ends early; nothing when it has not come by then.
  std::optional<T> takeWithin(const ServiceCall& call) {
    call.setWake([this] { wake(); });
    {
      std::unique_lock lock(mutex_);
      given_.wait_until(lock, call.deadline(), [&] { return value_ || isOver_; });
    }
    call.setWake({});
    const std::lock_guard lock(mutex_);
    return std::move(value_);
  }
  T take() {
    std::unique_lock lock(mutex_);
    given_.wait(lock, [&] { return value_.has_value(); });
    return std::move(*value_);
  }

 private:
  void wake() {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
    given_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable given_;
  std::optional<T> value_;
  bool isOver_ = false;
};

/// What the service returned for a request that the session's thread made.
template <class Result>
struct Reply {
  Result result;
  Fault fault;
};

}  // namespace ov::eds
