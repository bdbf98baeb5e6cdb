#pragma once

#include <mutex>
#include <utility>

#include <OVAddressBookSDK/export.h>

namespace ov::detail {

/// One lock of a fixed pool, chosen by address.
[[nodiscard]] OV_EXPORT std::mutex& stripeOf(const void* address);

}  // namespace ov::detail

/// A field that one thread may read while another replaces it: readers always get a whole value.
///
/// The old value is released after the lock is, so that its destructor may do anything.
template <class T>
class OVAtomic {
 public:
  OVAtomic() = default;
  /// Holds `value`.
  explicit OVAtomic(T value) : value_(std::move(value)) {}
  OVAtomic(const OVAtomic&) = delete;
  OVAtomic& operator=(const OVAtomic&) = delete;

  /// A copy of the whole value, of before or after any `store` beside it.
  [[nodiscard]] T load() const {
    const std::lock_guard lock(ov::detail::stripeOf(this));
    return value_;
  }
  /// Replaces the value.
  void store(T value) {
    const std::lock_guard lock(ov::detail::stripeOf(this));
    std::swap(value_, value);
  }
  /// Stores without the lock: for an owner that no other thread knows yet.
  void place(T value) { value_ = std::move(value); }
  /// Takes the value out without the lock: for an owner that no other thread knows any more.
  [[nodiscard]] T take() { return std::exchange(value_, T{}); }

 private:
  T value_{};
};
