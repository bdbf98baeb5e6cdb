#include "support/processes/child_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace {

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

int waitFor(pid_t id, int options) {
  int status = 0;
  while (::waitpid(id, &status, options) < 0) {
    if (errno != EINTR) fail("waitpid");
  }
  return status;
}

}  // namespace

ChildProcess::ChildProcess(const std::function<bool()>& work) {
  std::fflush(nullptr);
  id_ = ::fork();
  if (id_ < 0) fail("fork");
  if (id_ == 0) {
    bool done = false;
    try {
      done = work();
    } catch (...) {
      done = false;
    }
    ::_exit(done ? 0 : 1);
  }
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : id_(std::exchange(other.id_, 0)) {}

ChildProcess::~ChildProcess() { kill(); }

bool ChildProcess::succeeded() {
  const int status = waitFor(std::exchange(id_, 0), 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void ChildProcess::waitUntilStopped() const {
  if (!WIFSTOPPED(waitFor(id_, WUNTRACED))) throw std::runtime_error("the process has ended");
}

void ChildProcess::kill() {
  if (id_ == 0) return;
  ::kill(id_, SIGKILL);
  waitFor(std::exchange(id_, 0), 0);
}

Pipe::Pipe() {
  if (::pipe2(ends_.data(), O_CLOEXEC) != 0) fail("pipe2");
}

Pipe::~Pipe() {
  ::close(ends_[0]);
  closeWriteEnd();
}

void Pipe::write(const std::string& bytes) const {
  if (::write(ends_[1], bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
    fail("write");
  }
}

std::string Pipe::read() const {
  std::array<char, 4096> buffer;
  ssize_t count = -1;
  while ((count = ::read(ends_[0], buffer.data(), buffer.size())) < 0) {
    if (errno != EINTR) fail("read");
  }
  return {buffer.data(), static_cast<std::size_t>(count)};
}

std::string Pipe::readAll() {
  closeWriteEnd();
  std::string all;
  for (std::string some = read(); !some.empty(); some = read()) all += some;
  return all;
}

void Pipe::closeWriteEnd() {
  if (ends_[1] >= 0) ::close(std::exchange(ends_[1], -1));
}
