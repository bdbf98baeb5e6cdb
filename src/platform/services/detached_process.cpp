// Starts a program that outlives this process: through a child that ends at once, so that nobody
// has to wait for the program. The child shares this process's memory instead of copying it.

#include "platform/services/detached_process.h"

#include <fcntl.h>
#include <sched.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <memory>
#include <new>

// `clone` by the C library's own name for it. ThreadSanitizer takes the other for a fork, which in
// common memory it is not.
extern "C" int __clone(int (*work)(void*), void* stack, int flags, void* argument,
                       ...);  // NOLINT(bugprone-reserved-identifier,cert-dcl*)

namespace ov {

namespace {

void require(int error) {
  if (error != 0) throw std::bad_alloc();
}

/// What becomes of descriptors and signals in the process that runs the program.
class Settings {
 public:
  Settings() {
    require(posix_spawn_file_actions_init(&files_));
    if (const int error = posix_spawnattr_init(&attributes_); error != 0) {
      posix_spawn_file_actions_destroy(&files_);
      require(error);
    }
  }
  Settings(const Settings&) = delete;
  Settings& operator=(const Settings&) = delete;
  ~Settings() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&files_);
  }

  void detachFiles() {
    require(posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDWR, mode_t{}));
    require(posix_spawn_file_actions_adddup2(&files_, STDIN_FILENO, STDOUT_FILENO));
    require(posix_spawn_file_actions_adddup2(&files_, STDIN_FILENO, STDERR_FILENO));
    require(posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1));
  }
  void resetSignals() {
    sigset_t all;
    sigset_t none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  }

  [[nodiscard]] int start(const char* program, char* const* arguments) const {
    return posix_spawn(nullptr, program, &files_, &attributes_, arguments, environ);
  }

 private:
  posix_spawn_file_actions_t files_;
  posix_spawnattr_t attributes_;
};

struct Job {
  const Settings& settings;
  const char* program;
  char* const* arguments;
};

/// What the child does: it makes the process that runs the program and ends at once, so that nobody
/// has to wait for that process.
int startAsGrandchild(void* job) {
  const Job& wanted = *static_cast<const Job*>(job);
  setsid();
  return wanted.settings.start(wanted.program, wanted.arguments) == 0 ? 0 : 1;
}

/// A child that uses this process's memory while this thread waits for its end: to copy a large
/// process takes long. With all signals blocked, so that no handler of the host runs in the child.
pid_t runChild(Job& job) {
  constexpr std::size_t kStack = 64 * std::size_t{1024};
  const std::unique_ptr<std::byte[]> stack(new std::byte[kStack]);  // NOLINT(*-avoid-c-arrays)
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  const pid_t child =
      __clone(&startAsGrandchild, stack.get() + kStack, CLONE_VM | CLONE_VFORK | SIGCHLD, &job);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return child;
}

/// Takes the child's exit status. A host that ignores SIGCHLD or reaps all children itself leaves
/// none to take; then the child is believed to have done its work.
bool succeeded(pid_t child) {
  int status = 0;
  pid_t reaped = -1;
  do {
    reaped = waitpid(child, &status, 0);
  } while (reaped < 0 && errno == EINTR);
  return reaped < 0 || (WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

}  // namespace

bool startDetached(const std::string& program, const std::string& argument) {
  std::string name = program;
  std::string only = argument;
  const std::array<char*, 3> arguments = {name.data(), only.data(), nullptr};
  Settings settings;
  settings.detachFiles();
  settings.resetSignals();
  Job job{settings, program.c_str(), arguments.data()};
  const pid_t child = runChild(job);
  return child > 0 && succeeded(child);
}

}  // namespace ov
