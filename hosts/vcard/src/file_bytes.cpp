// Reads files whole, and replaces them whole: a new file beside the old one is written, flushed and
// renamed over it.

#include "file_bytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include <OVAddressBookVCard/vcard_export.h>

#include "memory/card_id.h"

namespace ov::vcard {

namespace {

constexpr std::size_t kMaxPipeBytes = std::size_t{512} << 20;

std::error_code lastError() { return {errno, std::generic_category()}; }

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  [[nodiscard]] int number() const { return number_; }
  /// Unlike the destructor, returns whether the last bytes were written.
  std::error_code close() {
    return ::close(std::exchange(number_, -1)) == 0 ? std::error_code() : lastError();
  }

 private:
  int number_;
};

std::error_code writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return lastError();
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

/// A new file beside `target`, opened for writing, that takes over the owner, where we may give it
/// away, and the mode of the file that it is going to replace.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& target)
      : path_(target.parent_path() /
              ("." + target.filename().string() + "." + ov::card::randomID().str())) {
    struct stat old {};
    const bool replaces = ::stat(target.c_str(), &old) == 0;
    file_.emplace(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                         replaces ? S_IRUSR | S_IWUSR : kAnybodyMayReadAndWrite));
    if (file_->number() < 0) {
      error_ = lastError();
    } else if (replaces) {
      [[maybe_unused]] const int given = ::fchown(file_->number(), old.st_uid, old.st_gid);
      if (::fchmod(file_->number(), old.st_mode & kModeBits) != 0) error_ = lastError();
    }
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (file_->number() >= 0 || isClosed_) ::unlink(path_.c_str());
  }

  /// Writes the bytes down to the disk.
  std::error_code fill(std::string_view bytes) {
    if (!error_) error_ = writeAll(file_->number(), bytes);
    if (!error_ && ::fsync(file_->number()) != 0) error_ = lastError();
    if (!error_) {
      isClosed_ = true;
      error_ = file_->close();
    }
    return error_;
  }

  std::error_code moveTo(const std::filesystem::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) return lastError();
    isClosed_ = false;
    return {};
  }

 private:
  static constexpr mode_t kAnybodyMayReadAndWrite = 0666;  // less what the umask takes away
  static constexpr mode_t kModeBits = 07777;

  std::filesystem::path path_;
  std::optional<Descriptor> file_;
  std::error_code error_;
  bool isClosed_ = false;
};

/// Makes the new name survive a power cut too.
void syncDirectory(const std::filesystem::path& directory) {
  const Descriptor folder(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.number() >= 0) ::fsync(folder.number());
}

/// The file that symbolic links lead to, whether it exists or not.
std::filesystem::path targetOf(std::filesystem::path path) {
  constexpr int kMaxLinks = 40;
  std::error_code error;
  for (int i = 0; i < kMaxLinks && std::filesystem::is_symlink(path, error); ++i) {
    const std::filesystem::path next = std::filesystem::read_symlink(path, error);
    if (error) break;
    path = path.parent_path() / next;
  }
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute;
}

}  // namespace

std::error_code readFile(const std::string& path, std::string& bytes) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.number() < 0) return lastError();
  struct stat status {};
  std::size_t known = 0;
  if (::fstat(file.number(), &status) == 0 && status.st_size > 0) {
    known = static_cast<std::size_t>(status.st_size);
    bytes.reserve(known + 1);
  }
  std::array<char, 65536> buffer;  // NOLINT: filled before it is read
  for (;;) {
    if (bytes.size() > std::max(known, kMaxPipeBytes)) {
      return std::make_error_code(std::errc::file_too_large);
    }
    const ssize_t size = ::read(file.number(), buffer.data(), buffer.size());
    if (size == 0) return {};
    if (size > 0) {
      bytes.append(buffer.data(), static_cast<std::size_t>(size));
    } else if (errno != EINTR) {
      return lastError();
    }
  }
}

std::error_code writeFile(const OVString& path, const OVRef<OVData>& data) {
  if (path.empty()) return std::make_error_code(std::errc::no_such_file_or_directory);
  const std::filesystem::path target = targetOf(path.str());
  TemporaryFile temporary(target);
  std::error_code error = temporary.fill(data == nullptr ? std::string_view() : data->text());
  if (!error) error = temporary.moveTo(target);
  if (!error) syncDirectory(target.parent_path());
  return error;
}

}  // namespace ov::vcard
