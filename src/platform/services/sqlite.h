#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/services/deadline.h"

struct sqlite3;
struct sqlite3_stmt;

/// The little of SQLite that the user defaults need. Failures throw `Error`, and `std::bad_alloc`
/// when memory runs out.
namespace ov::sqlite {

class Statement;

class Error : public std::runtime_error {
 public:
  Error(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
  /// What SQLite says about a file that is not a database.
  [[nodiscard]] static Error notADatabase();
  /// The file itself is at fault: no database, a damaged one, or one with other tables.
  [[nodiscard]] bool isInFile() const;

 private:
  int code_;
};

/// A connection. Belongs to one thread and to one process.
class Database {
 public:
  /// Opens an existing file that is not a symbolic link; nor may a folder above it be one. Waits
  /// for locks of others until `deadline`, which must live as long as the connection waits for it.
  Database(const std::string& path, Deadline& deadline);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  /// Waits for locks of others until another moment from here on.
  void waitUntil(Deadline& deadline);

  void execute(const char* sql);
  /// A number that changes with every commit of another connection.
  [[nodiscard]] std::int64_t dataVersion();

  /// Leaves the write-ahead log beside the file when the connection closes, instead of copying it
  /// into the file and waiting for the disk.
  void keepLogOnClose();
  /// Copies the write-ahead log into the file, both safely on the disk, and empties it.
  void checkpoint();
  /// Copies the write-ahead log into the file if it has more than `pages` after a commit of this
  /// connection and nobody has to be waited for, so that it starts over. An emptied log takes no
  /// room either.
  void checkpointIfLongerThan(int pages, bool emptying);

 private:
  friend class Statement;
  struct Close {
    void operator()(sqlite3* connection) const;
  };
  Deadline* deadline_ = nullptr;
  std::unique_ptr<sqlite3, Close> connection_;
  std::unique_ptr<Statement> dataVersion_;
  int logPages_ = 0;
};

/// Parameters count from 1, columns from 0. What a column hands out is valid until the next step.
class Statement {
 public:
  Statement(Database& database, std::string_view sql);

  void bindNull(int parameter);
  void bind(int parameter, std::int64_t value);
  void bind(int parameter, double value);
  /// The text and the bytes must stay as they are until the statement has been stepped. No bytes
  /// may be bound as null.
  void bind(int parameter, std::string_view text);
  void bind(int parameter, std::span<const std::byte> bytes);

  /// True when there is a row.
  bool step();
  /// Makes the statement ready to be stepped again.
  void reset();

  [[nodiscard]] bool isNull(int column) const;
  [[nodiscard]] std::int64_t integer(int column) const;
  [[nodiscard]] double real(int column) const;
  [[nodiscard]] std::string_view text(int column) const;
  [[nodiscard]] std::span<const std::byte> bytes(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace ov::sqlite
