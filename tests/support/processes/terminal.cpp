#include "support/processes/terminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace {

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

Terminal::Terminal() : screen_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
  if (screen_ < 0 || ::grantpt(screen_) != 0 || ::unlockpt(screen_) != 0) fail("posix_openpt");
  program_ = ::open(::ptsname(screen_), O_RDWR | O_NOCTTY | O_CLOEXEC);  // NOLINT: one thread
  termios settings{};
  if (program_ < 0 || ::tcgetattr(program_, &settings) != 0) fail("open");
  ::cfmakeraw(&settings);
  if (::tcsetattr(program_, TCSANOW, &settings) != 0) fail("tcsetattr");
}

Terminal::~Terminal() {
  closeProgramSide();
  ::close(screen_);
}

std::string Terminal::readAll() {
  closeProgramSide();
  std::string all;
  std::array<char, 4096> buffer;
  for (;;) {
    const ssize_t count = ::read(screen_, buffer.data(), buffer.size());
    if (count > 0) {
      all.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno == EIO) {  // nobody has it open any more
      return all;
    } else if (errno != EINTR) {
      fail("read");
    }
  }
}

void Terminal::closeProgramSide() {
  if (program_ >= 0) ::close(std::exchange(program_, -1));
}
