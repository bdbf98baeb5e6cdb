#pragma once

#include <atomic>
#include <exception>

namespace ovcontacts {

/// Thrown out of what was cancelled.
class Cancelled : public std::exception {};

/// Tells a thread that its work is not wanted any more. Any thread may call it.
class Cancellation {
 public:
  Cancellation();
  Cancellation(const Cancellation&) = delete;
  Cancellation& operator=(const Cancellation&) = delete;
  ~Cancellation();

  void cancel();
  [[nodiscard]] bool isCancelled() const { return isCancelled_; }
  /// Throws `Cancelled` once it was.
  void check() const;
  /// Can be read once it was cancelled, for those who wait for a file, too.
  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  std::atomic<bool> isCancelled_{false};
  int descriptor_;
};

}  // namespace ovcontacts
