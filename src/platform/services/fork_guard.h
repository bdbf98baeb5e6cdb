#pragma once

#include <functional>
#include <mutex>

namespace ov {

/// Keeps a mutex usable in forked children. A child has the forking thread only: what another
/// thread held while the process was copied would never be given back. So the forking thread holds
/// every guarded mutex for that moment, which makes a fork wait for the calls that are under way.
///
/// While one thread holds two of them, the later guard's has been locked first.
class ForkGuard {
 public:
  /// `beforeFork` is called before each fork, with the mutex held. It must not throw.
  explicit ForkGuard(std::mutex& mutex, std::function<void()> beforeFork = {});
  ForkGuard(const ForkGuard&) = delete;
  ForkGuard& operator=(const ForkGuard&) = delete;
  ~ForkGuard();

  /// Called before a guarded mutex is taken for long, with none held: lets a thread that is about
  /// to fork go first, which it might never do otherwise while others take the mutex again and
  /// again.
  static void letForksPass();

 private:
  friend class ForkGuards;

  std::mutex& mutex_;
  const std::function<void()> beforeFork_;
  ForkGuard* older_ = nullptr;
  ForkGuard* newer_ = nullptr;
};

/// A guard for a mutex that lives as long as the process, and under which guards may be made.
/// While one thread holds two of them, the one that was named first has been locked first.
void guardForever(std::mutex& mutex);

}  // namespace ov
