#include "platform/services/directory.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <system_error>

namespace ov {

namespace {

[[noreturn]] void throwErrorOf(const std::string& path) {
  throw std::system_error(errno, std::generic_category(), path);
}

/// A folder may let us make others in it and still not let us open it.
void flushIfReadable(const std::string& path) {
  const FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.number() >= 0) fsync(folder.number());
}

}  // namespace

Directory::Directory(const std::string& path)
    : path_(path), descriptor_(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (descriptor_.number() < 0) throwErrorOf(path_);
}

void Directory::lock(Deadline& deadline, bool shared) const {
  while (flock(descriptor_.number(), (shared ? LOCK_SH : LOCK_EX) | LOCK_NB) != 0) {
    const int error = errno;
    if (error == EINTR || (error == EWOULDBLOCK && deadline.pause())) continue;
    throw std::system_error(error, std::generic_category(), "lock of " + path_);
  }
}

void Directory::unlock() const noexcept { flock(descriptor_.number(), LOCK_UN); }

void Directory::flush() const {
  // Some file systems have no such operation for folders.
  if (fsync(descriptor_.number()) != 0 && errno != EINVAL) throwErrorOf(path_);
}

void createDirectories(const std::string& path) {
  std::size_t end = 0;
  do {
    const std::string parent = end == 0 ? "/" : path.substr(0, end);
    end = path.find('/', end + 1);
    const std::string folder = path.substr(0, end);
    if (mkdir(folder.c_str(), S_IRWXU) == 0) {
      flushIfReadable(parent);
    } else if (errno != EEXIST) {
      throwErrorOf(folder);
    }
  } while (end != std::string::npos);
}

std::string realPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr),
                                                             &std::free);
  if (resolved != nullptr) return resolved.get();
  if (errno != ENOENT && errno != ENOTDIR) throwErrorOf(path);
  return {};
}

}  // namespace ov
