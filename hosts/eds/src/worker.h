#pragma once

#include <glib.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

namespace ov::eds {

/// The sessions' thread: it runs a main context of its own, in which the service reports changes.
///
/// What is passed on goes through a lock of our own, so that it is plain to see (also for a tool
/// that does not know GLib's locks) what happens before what.
class Worker {
 public:
  using Clock = std::chrono::steady_clock;
  using Timer = std::uint64_t;

  /// The one of all sessions: libebook gives them all the same list of sources, which tells its
  /// news where it was made.
  [[nodiscard]] static std::shared_ptr<Worker> ofThisProcess();

  Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  /// Runs what has been posted, then ends the thread. On the thread itself, only asks it to end.
  ~Worker();

  /// Has the thread call `work`, which must not throw.
  void post(std::function<void()> work);
  /// Has the thread call `work` at that time, unless it is cancelled before.
  [[nodiscard]] Timer callAt(Clock::time_point time, std::function<void()> work);
  /// Does nothing once the time has come.
  void cancel(Timer timer);

  [[nodiscard]] bool isThisThread() const;

 private:
  struct Shared;
  static void run(const std::shared_ptr<Shared>& shared);

  std::shared_ptr<Shared> shared_;
  std::thread thread_;
};

}  // namespace ov::eds
