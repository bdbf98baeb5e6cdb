#include "program.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ostream>
#include <system_error>

namespace {

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

/// A file in memory, without a name.
class Capture {
 public:
  Capture() : descriptor_(memfd_create("capture", MFD_CLOEXEC)) {
    if (descriptor_ < 0) fail("memfd_create");
  }
  explicit Capture(const std::string& content) : Capture() {
    if (write(descriptor_, content.data(), content.size()) != std::ssize(content)) fail("write");
    lseek(descriptor_, 0, SEEK_SET);
  }
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;
  ~Capture() { close(descriptor_); }

  [[nodiscard]] int descriptor() const { return descriptor_; }

  [[nodiscard]] std::string content() const {
    std::string all(static_cast<std::size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
    if (pread(descriptor_, all.data(), all.size(), 0) != std::ssize(all)) fail("pread");
    return all;
  }

 private:
  int descriptor_;
};

/// Makes standard output a terminal. The other side of it stays open until the program ends.
void redirectToTerminal() {
  const int other = posix_openpt(O_RDWR | O_NOCTTY);
  if (other < 0 || grantpt(other) != 0 || unlockpt(other) != 0) fail("posix_openpt");
  const int terminal = open(ptsname(other), O_RDWR | O_NOCTTY);  // NOLINT: one thread
  if (terminal < 0) fail("open");
  dup2(terminal, STDOUT_FILENO);
  close(terminal);
}

void redirectOutput(const Surroundings& surroundings, const Capture& capture) {
  if (surroundings.outputIsClosed) {
    close(STDOUT_FILENO);
  } else if (surroundings.outputIsTerminal) {
    redirectToTerminal();
  } else if (surroundings.outputIsBroken) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) fail("pipe");
    close(ends[0]);
    dup2(ends[1], STDOUT_FILENO);
    close(ends[1]);
  } else if (!surroundings.outputFile.empty()) {
    const int file = open(surroundings.outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0) fail("open");
    dup2(file, STDOUT_FILENO);
    close(file);
  } else {
    dup2(capture.descriptor(), STDOUT_FILENO);
  }
}

/// Becomes the program.
[[noreturn]] void become(const std::vector<std::string>& command,
                         const Surroundings& surroundings) {
  for (const std::string& variable : surroundings.environment) {
    const std::size_t equals = variable.find('=');
    setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
  }
  if (surroundings.largestFile) {
    const rlimit limit{*surroundings.largestFile, *surroundings.largestFile};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  std::signal(SIGPIPE, SIG_DFL);
  std::vector<char*> arguments;
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  return stream << "status " << outcome.status << "\n--- out\n"
                << outcome.out << "--- err\n"
                << outcome.err << "---";
}

Outcome runProgram(const std::vector<std::string>& command, const Surroundings& surroundings) {
  const Capture in(surroundings.input);
  const Capture out;
  const Capture err;
  const pid_t child = fork();
  if (child < 0) fail("fork");
  if (child == 0) {
    dup2(in.descriptor(), STDIN_FILENO);
    dup2(err.descriptor(), STDERR_FILENO);
    redirectOutput(surroundings, out);
    become(command, surroundings);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) fail("waitpid");
  }
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), out.content(),
          err.content()};
}
