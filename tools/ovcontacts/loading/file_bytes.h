#pragma once

#include <QtCore/QString>

#include <vector>

#include "loading/book_source.h"

namespace ovcontacts {

struct FileBytes {
  std::vector<std::byte> bytes;
  /// False for pipes and the like, which nothing can be saved to.
  bool isOrdinary = true;
};

/// All bytes of a file, pipes included. Waits for a pipe for as long as it takes, unless it is
/// cancelled. Throws `OpeningError`, also for anything but a regular file that has no end after
/// 512 MiB.
[[nodiscard]] FileBytes readFile(const QString& path, const BookSource::Progress& progress,
                                 const Cancellation& cancellation);

}  // namespace ovcontacts
