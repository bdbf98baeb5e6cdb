#pragma once

#include <atomic>
#include <mutex>
#include <utility>

namespace ov::detail {

/// A process-wide object: built by the first call that needs it, never destroyed.
///
/// Threads may come first together; a builder that throws leaves the next call to try again, which
/// `std::call_once` does not do under ThreadSanitizer. Instances are static and run no constructor.
template <class T>
class BuiltOnce {
 public:
  constexpr BuiltOnce() = default;
  BuiltOnce(const BuiltOnce&) = delete;
  BuiltOnce& operator=(const BuiltOnce&) = delete;

  /// The object, made of what `build` returns unless it exists already.
  template <class Build>
  const T& get(Build&& build) {
    if (const T* built = peek()) return *built;
    const std::lock_guard lock(mutex_);
    if (peek() == nullptr)
      built_.store(new T(std::forward<Build>(build)()), std::memory_order_release);
    return *peek();
  }

  /// The object; null while nobody has asked for it.
  [[nodiscard]] const T* peek() const { return built_.load(std::memory_order_acquire); }

 private:
  std::mutex mutex_;
  std::atomic<const T*> built_{nullptr};
};

}  // namespace ov::detail
