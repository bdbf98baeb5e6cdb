#pragma once

#include <string>

#include "platform/services/deadline.h"
#include "platform/services/file_descriptor.h"

namespace ov {

/// An open folder. Failures throw `std::system_error`.
class Directory {
 public:
  explicit Directory(const std::string& path);

  /// Locks the folder until it is unlocked or this object goes: against all other locks, or,
  /// shared, only against those that are not. Fails when another keeps its lock beyond the
  /// deadline.
  void lock(Deadline& deadline) const { lock(deadline, false); }
  void lockShared(Deadline& deadline) const { lock(deadline, true); }
  void unlock() const noexcept;

  /// Puts what was created, renamed and removed in the folder safely on the disk.
  void flush() const;

 private:
  void lock(Deadline& deadline, bool shared) const;

  const std::string path_;
  const FileDescriptor descriptor_;
};

/// Makes the folders of an absolute path that are missing, for their owner alone.
void createDirectories(const std::string& path);

/// The folder's path without symbolic links in it; "" when there is no such folder.
[[nodiscard]] std::string realPath(const std::string& path);

}  // namespace ov
