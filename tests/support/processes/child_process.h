#pragma once

#include <sys/types.h>

#include <array>
#include <functional>
#include <string>

/// A part of a test in a process of its own, forked off. Killed when this object goes.
class ChildProcess {
 public:
  /// The process ends with `work`; it has succeeded when that returns true.
  explicit ChildProcess(const std::function<bool()>& work);
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  /// Waits for the end.
  [[nodiscard]] bool succeeded();
  /// Waits until the process has stopped itself.
  void waitUntilStopped() const;
  void kill();

 private:
  pid_t id_;
};

/// Carries a few bytes from one process to another. What has been written is never lost with the
/// writer.
class Pipe {
 public:
  Pipe();
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe();

  void write(const std::string& bytes) const;
  /// Waits for something; "" at the end.
  [[nodiscard]] std::string read() const;
  /// Everything up to the end, which comes when all other processes have closed the pipe.
  [[nodiscard]] std::string readAll();
  void closeWriteEnd();

 private:
  std::array<int, 2> ends_;
};
