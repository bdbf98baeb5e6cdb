#include "fuzz/plistlib_peer.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include "platform/archive/big_endian.h"

namespace {

[[noreturn]] void fail(const char* what, int error) {
  throw std::system_error(error, std::generic_category(), what);
}

}  // namespace

PlistlibPeer::PlistlibPeer() {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    fail("socketpair", errno);
  }
  socket_ = ends[0];
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  char python[] = OV_PYTHON;
  char alone[] = "-I";
  char script[] = OV_PLISTLIB_PEER;
  char* arguments[] = {python, alone, script, nullptr};
  const int error = ::posix_spawn(&process_, python, &actions, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  if (error != 0) fail(OV_PYTHON, error);
}

PlistlibPeer::~PlistlibPeer() {
  ::close(socket_);
  ::waitpid(process_, nullptr, 0);
}

std::string PlistlibPeer::difference(std::span<const std::byte> block,
                                     std::string_view description) {
  send({reinterpret_cast<const char*>(block.data()), block.size()});
  send(description);
  const std::string size = receive(4);
  return receive(static_cast<std::size_t>(
      ov::detail::loadBigEndian(reinterpret_cast<const std::byte*>(size.data()), 4)));
}

void PlistlibPeer::send(std::string_view part) const {
  std::string message(4, '\0');
  ov::detail::storeBigEndian(reinterpret_cast<std::byte*>(message.data()), part.size(), 4);
  message += part;
  for (std::string_view rest = message; !rest.empty();) {
    const ssize_t sent = ::send(socket_, rest.data(), rest.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno != EINTR) fail("plistlib_peer.py", errno);
    if (sent > 0) rest.remove_prefix(static_cast<std::size_t>(sent));
  }
}

std::string PlistlibPeer::receive(std::size_t size) const {
  std::string message(size, '\0');
  for (std::size_t done = 0; done < size;) {
    const ssize_t count = ::recv(socket_, message.data() + done, size - done, 0);
    if (count < 0 && errno != EINTR) fail("plistlib_peer.py", errno);
    if (count == 0) throw std::runtime_error("plistlib_peer.py has ended");
    if (count > 0) done += static_cast<std::size_t>(count);
  }
  return message;
}
