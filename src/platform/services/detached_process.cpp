#include "platform/services/detached_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "platform/services/fork_guard.h"

namespace ov {

namespace {

// Whatever runs between a fork and the exec may only do what a signal handler may do: another
// thread may have held any lock when the process was copied.

void resetSignals() {
  struct sigaction action = {};
  action.sa_handler = SIG_DFL;
  for (int signal = 1; signal < NSIG; ++signal) sigaction(signal, &action, nullptr);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
}

bool closeDescriptors() {
  const int null = open("/dev/null", O_RDWR);
  if (null < 0) return false;
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (dup2(null, stream) < 0) return false;
  }
  closefrom(STDERR_FILENO + 1);
  return true;
}

[[noreturn]] void execute(const char* program, char* const* arguments) {
  resetSignals();
  if (closeDescriptors()) execve(program, arguments, environ);
  _exit(127);
}

/// The child makes the process that runs the program and ends at once, so that nobody has to wait
/// for that process.
[[noreturn]] void executeAsGrandchild(const char* program, char* const* arguments) {
  setsid();
  const pid_t grandchild = _Fork();
  if (grandchild == 0) execute(program, arguments);
  _exit(grandchild < 0 ? 1 : 0);
}

/// Fork with all signals blocked, so that no handler of the host runs in the child.
pid_t forkQuietly() {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  const UnguardedForks quick;
  const pid_t child = fork();
  if (child != 0) pthread_sigmask(SIG_SETMASK, &before, nullptr);
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
  const pid_t child = forkQuietly();
  if (child == 0) executeAsGrandchild(program.c_str(), arguments.data());
  return child > 0 && succeeded(child);
}

}  // namespace ov
