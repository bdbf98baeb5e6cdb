#include "loading/file_bytes.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace ovcontacts {

namespace {

constexpr std::size_t kPiece = 1 << 20;
constexpr std::size_t kMostOfAPipe = std::size_t{512} << 20;

[[noreturn]] void failWithErrno() {
  throw OpeningError(QString::fromStdString(std::generic_category().message(errno)));
}

class OpenFile {
 public:
  /// A pipe that nobody writes to yet does not keep us here.
  explicit OpenFile(const QString& path)
      : descriptor_(
            ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor_ == -1) failWithErrno();
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(descriptor_); }

  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

/// Until there is something to read, or the end.
void waitFor(int descriptor, const Cancellation& cancellation) {
  std::array<pollfd, 2> files{pollfd{descriptor, POLLIN, 0},
                              pollfd{cancellation.descriptor(), POLLIN, 0}};
  while (poll(files.data(), files.size(), -1) == -1) {
    if (errno != EINTR) failWithErrno();
  }
  cancellation.check();
}

}  // namespace

FileBytes readFile(const QString& path, const BookSource::Progress& progress,
                   const Cancellation& cancellation) {
  const OpenFile file(path);
  struct stat status = {};
  if (fstat(file.descriptor(), &status) != 0) failWithErrno();
  FileBytes result;
  result.isOrdinary = S_ISREG(status.st_mode);
  const auto known = result.isOrdinary ? static_cast<std::size_t>(status.st_size) : 0;
  const std::size_t most = std::max(known + 1, kMostOfAPipe);
  std::size_t size = 0;
  result.bytes.resize(known + 1);
  for (;;) {
    if (size == most) {
      throw OpeningError(QCoreApplication::translate(
          "Opening", "It is not a regular file and is larger than 512 MiB."));
    }
    if (size == result.bytes.size()) {
      result.bytes.resize(std::min(std::max(size * 2, kPiece), most));
    }
    cancellation.check();
    if (!result.isOrdinary) waitFor(file.descriptor(), cancellation);
    const ssize_t got = read(file.descriptor(), result.bytes.data() + size,
                             std::min(result.bytes.size() - size, kPiece));
    if (got == 0) break;
    if (got > 0) {
      size += static_cast<std::size_t>(got);
      progress(size, known);
    } else if (errno != EINTR && errno != EAGAIN) {
      failWithErrno();
    }
  }
  result.bytes.resize(size);
  return result;
}

}  // namespace ovcontacts
