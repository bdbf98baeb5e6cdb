// Commands check their target before they read anything, so that nobody waits for a file that
// cannot be written in the end.

#include "files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <ostream>
#include <system_error>
#include <vector>

#include <OVAddressBookVCard/vcard_export.h>

#include "session.h"

namespace ovbook {

namespace {

constexpr std::size_t kPiece = 1 << 16;
constexpr std::size_t kMaxPipeBytes = std::size_t{512} << 20;

[[noreturn]] void fail(const std::string& path, std::error_code error) {
  throw Failure(path, error.message());
}

[[noreturn]] void failWithErrno(const std::string& path) {
  fail(path, {errno, std::generic_category()});
}

class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ == -1) failWithErrno(path);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(descriptor_); }

  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

/// The size of a regular file, 0 where it is not known before the end.
std::size_t sizeOf(const OpenFile& file) {
  struct stat status = {};
  if (fstat(file.descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) return 0;
  return static_cast<std::size_t>(status.st_size);
}

}  // namespace

OVRef<OVData> readFile(const std::string& path) {
  const OpenFile file(path);
  std::vector<std::byte> bytes(sizeOf(file) + 1);
  const std::size_t most = std::max(bytes.size(), kMaxPipeBytes);
  std::size_t size = 0;
  for (;;) {
    if (size == most) throw Failure(path, "is not a regular file and is larger than 512 MiB");
    if (size == bytes.size()) bytes.resize(std::min(std::max(size * 2, kPiece), most));
    const ssize_t got = read(file.descriptor(), bytes.data() + size, bytes.size() - size);
    if (got == 0) break;
    if (got > 0) {
      size += static_cast<std::size_t>(got);
    } else if (errno != EINTR) {
      failWithErrno(path);
    }
  }
  bytes.resize(size);
  return OVData::dataWithVector(std::move(bytes));
}

void checkPath(const std::string& path) {
  if (OVString(path).view() != path) throw Failure(path, "the file name is not valid UTF-8");
}

bool isStandardOutput(const std::string& target) { return target == "-"; }

void checkNoTerminal(const std::string& target) {
  if (isStandardOutput(target) && isatty(STDOUT_FILENO) != 0) {
    throw Failure("standard output", "is a terminal, and a book is not text");
  }
}

void checkTarget(const std::string& target, const std::string& input) {
  if (isStandardOutput(target)) return;
  checkPath(target);
  std::error_code unknown;
  const auto status = std::filesystem::status(target, unknown);
  if (std::filesystem::is_directory(status)) {
    fail(target, std::make_error_code(std::errc::is_a_directory));
  }
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw Failure(target, "is not a regular file and would be replaced by one");
  }
  if (std::filesystem::equivalent(target, input, unknown)) {
    throw Failure(target, "is an input file and would be overwritten");
  }
}

void writeFile(const std::string& path, const OVRef<OVData>& data, std::ostream& out) {
  if (isStandardOutput(path)) {
    out << data->text() << std::flush;
    return;
  }
  const mode_t mask = umask(S_IRWXG | S_IRWXO);
  const std::error_code error = ov::vcard::writeFile(path, data);
  umask(mask);
  if (error) fail(path, error);
}

}  // namespace ovbook
