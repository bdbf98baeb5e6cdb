#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ovbook {

class LiveBooks;

/// How the program ends.
enum ExitStatus : int {
  kDone = 0,
  /// The command did its work, but for something that it named on standard error.
  kIncomplete = 1,
  /// The command could not do its work, or was not understood.
  kFailed = 2,
};

/// Ends the command with `kFailed`. The message is one line: what was wrong with which file or
/// argument. It may hold characters that are not safe to print.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& message) : std::runtime_error(message) {}
  Failure(std::string_view subject, std::string_view reason)
      : std::runtime_error(std::string(subject) + ": " + std::string(reason)) {}
};

/// What the commands share: where they write, and how the program will end.
class Session {
 public:
  /// The streams outlive the session.
  Session(std::ostream& out, std::ostream& err, const LiveBooks& live)
      : out_(out), err_(err), live_(live) {}

  /// Writes "ovbook: " and the message, made printable, as one line to `err`.
  void report(std::string_view message);
  /// The same, and the program will end with `kIncomplete`.
  void complain(std::string_view message);

  [[nodiscard]] std::ostream& out() { return out_; }
  [[nodiscard]] std::ostream& err() { return err_; }
  [[nodiscard]] const LiveBooks& live() const { return live_; }
  [[nodiscard]] ExitStatus status() const { return status_; }

 private:
  std::ostream& out_;
  std::ostream& err_;
  const LiveBooks& live_;
  ExitStatus status_ = kDone;
};

}  // namespace ovbook
