#pragma once

#include <mutex>
#include <utility>

#include <OVAddressBookSDK/export.h>

namespace ov::detail {

/// Holds one lock of a fixed pool, chosen by address; none while the process has one thread.
class StripeLock {
 public:
  explicit StripeLock(const void* address) : mutex_(stripeOf(address)) {
    if (mutex_ != nullptr) mutex_->lock();
  }
  StripeLock(const StripeLock&) = delete;
  StripeLock& operator=(const StripeLock&) = delete;
  ~StripeLock() {
    if (mutex_ != nullptr) mutex_->unlock();
  }

 private:
  /// Null while the process has one thread.
  [[nodiscard]] OV_EXPORT static std::mutex* stripeOf(const void* address);

  std::mutex* const mutex_;
};

}  // namespace ov::detail

/// A field that one thread may read while another replaces it: readers always get a whole value.
///
/// The old value is destroyed after the lock is released, so its destructor may do anything.
template <class T>
class OVAtomic {
 public:
  OVAtomic() = default;
  /// Holds `value`.
  explicit OVAtomic(T value) : value_(std::move(value)) {}
  OVAtomic(const OVAtomic&) = delete;
  OVAtomic& operator=(const OVAtomic&) = delete;

  /// A copy of the whole value; while another thread stores, the old or the new one.
  [[nodiscard]] T load() const {
    const ov::detail::StripeLock lock(this);
    return value_;
  }
  /// Replaces the value.
  void store(T value) {
    const ov::detail::StripeLock lock(this);
    std::swap(value_, value);
  }
  /// Stores without the lock, for an owner that no other thread can reach yet.
  void place(T value) { value_ = std::move(value); }
  /// Moves the value out without the lock, for an owner that no other thread can reach any more.
  [[nodiscard]] T take() { return std::exchange(value_, T{}); }

 private:
  T value_{};
};
