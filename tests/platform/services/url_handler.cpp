// Replaces `xdg-open`: reports to the pipe "report" beside it how it was run, one line for each
// run.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// "0:/dev/null 1:/dev/null ..."
std::string descriptors() {
  std::vector<int> numbers;
  for (int number = 0; number < 4096; ++number) {
    if (fcntl(number, F_GETFD) >= 0) numbers.push_back(number);
  }
  std::string text;
  for (const int number : numbers) {
    const std::string name = std::to_string(number);
    std::error_code ignored;
    text += " " + name + ":" + fs::read_symlink("/proc/self/fd/" + name, ignored).string();
  }
  return text;
}

int changedSignals() {
  sigset_t blocked;
  sigprocmask(SIG_SETMASK, nullptr, &blocked);
  int changed = 0;
  for (int number = 1; number <= SIGSYS; ++number) {
    struct sigaction action = {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler == SIG_IGN || sigismember(&blocked, number) == 1) ++changed;
  }
  return changed;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string atStart = descriptors();
  const fs::path pipe = fs::path(arguments[0]).parent_path() / "report";
  const int report = open(pipe.c_str(), O_WRONLY);
  std::string line = "arguments=" + std::to_string(count - 1);
  for (int i = 1; i < count; ++i) line += std::string(" [") + arguments[i] + "]";
  line += " descriptors=" + atStart + " signals=" + std::to_string(changedSignals()) +
          " session=" + std::to_string(getsid(0)) + " parent=" + std::to_string(getppid()) + "\n";
  return write(report, line.data(), line.size()) == static_cast<ssize_t>(line.size()) ? 0 : 1;
}
