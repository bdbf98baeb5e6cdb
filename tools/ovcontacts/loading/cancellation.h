#pragma once

#include <exception>
#include <stop_token>

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
  [[nodiscard]] bool isCancelled() const { return stop_.stop_requested(); }
  /// Throws `Cancelled` once it was.
  void check() const;
  [[nodiscard]] std::stop_token token() const { return stop_.get_token(); }
  /// Can be read once it was cancelled, for those who wait for a file, too.
  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  std::stop_source stop_;
  int descriptor_;
};

}  // namespace ovcontacts
