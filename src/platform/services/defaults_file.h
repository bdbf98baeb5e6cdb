#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/services/deadline.h"
#include "platform/services/directory.h"
#include "platform/services/sqlite.h"

namespace ov {

/// The database file of one application's preferences, together with its write-ahead log: opens it,
/// makes it, moves aside what is in its place. Failures throw `sqlite::Error` or
/// `std::system_error`.
///
/// A lock of the folder keeps the files where they are: who uses the database shares it, who makes
/// or moves files has it alone.
class DefaultsFile {
 public:
  /// Distinguishes files that have had the same name.
  struct Identity {
    std::array<std::uint64_t, 8> numbers{};
    bool operator==(const Identity&) const = default;
  };

  /// Between two uses the folder is not locked, and the files may go.
  struct Connection {
    explicit Connection(const std::string& path) : folder(path) {}

    Directory folder;
    std::unique_ptr<sqlite::Database> database;  // closed before the folder's lock goes
    Identity identity;
  };

  /// The folder need not exist; "" means no folder at all.
  explicit DefaultsFile(std::string directory) : directory_(std::move(directory)) {}

  /// A connection that commits without waiting for the disk; null when there is no file. The error
  /// is "in the file" when something else is in its place.
  [[nodiscard]] std::unique_ptr<Connection> open(Deadline& deadline) const;

  /// Ends a use of the connection, which others may then get in the way of.
  void rest(Connection& connection) const;
  /// Begins another use; false when the files are not those any more that the connection has open,
  /// or somebody has written into them past SQLite.
  [[nodiscard]] bool resume(Connection& connection, Deadline& deadline) const;

  /// Makes the database unless there is one by now, its folders too. A file appears under its name
  /// only when it is complete, and may be read by its owner alone. Gives the new names of what was
  /// moved aside for it.
  [[nodiscard]] std::vector<std::string> create(Deadline& deadline) const;

  /// Renames what is in the place of the database and is not one, or is a damaged one, together
  /// with its log; nothing that was moved earlier is overwritten. Gives the new names, none when
  /// all was well after all.
  [[nodiscard]] std::vector<std::string> moveAside(Deadline& deadline) const;

 private:
  const std::string directory_;
};

}  // namespace ov
