// Values in one table, by key. Each call is one transaction with a deadline; a damaged file is
// moved aside and the call repeated on a new one.

#include "platform/services/defaults_database.h"

#include <memory>
#include <stdexcept>
#include <string_view>

#include "platform/services/sqlite.h"
#include "platform/services/stored_value.h"

namespace ov {

namespace {

using sqlite::Database;
using sqlite::Statement;

// Whoever opens the database while nobody else has it open reads the whole log; to shorten it is to
// wait for the disk.
constexpr int kLongestLogAtOpening = 256;
constexpr int kLongestLog = 4096;

constexpr std::string_view kSet =
    "INSERT OR REPLACE INTO defaults (key, kind, value) VALUES (?, ?, ?)";
constexpr std::string_view kRemove = "DELETE FROM defaults WHERE key = ?";

DefaultsDatabase::Values readAll(Database& database) {
  DefaultsDatabase::Values values;
  Statement row(database, "SELECT key, kind, value FROM defaults");
  while (row.step()) {
    if (auto object = storedAt(row, 1)) values.emplace(row.text(0), std::move(object));
  }
  return values;
}

void writeAll(Database& database, const std::vector<DefaultsDatabase::Change>& changes) {
  database.execute("BEGIN IMMEDIATE");
  for (const auto& change : changes) {
    Statement statement(database, change.object == nullptr ? kRemove : kSet);
    statement.bind(1, change.key.view());
    if (change.object != nullptr) bindStored(statement, 2, change.object);
    statement.step();
  }
  database.execute("COMMIT");
}

}  // namespace

/// Calls `work` with a connection, or null when there is no database. When the file turns out to be
/// none, it is moved aside and the work done once more.
template <class Work>
void DefaultsDatabase::work(Deadline& deadline, Work work) {
  try {
    workWithoutMending(deadline, work);
  } catch (const sqlite::Error& error) {
    if (!error.isInFile()) throw;
    noteMoved(file_.moveAside(deadline));
    workWithoutMending(deadline, work);
  }
}

template <class Work>
void DefaultsDatabase::workWithoutMending(Deadline& deadline, Work work) {
  try {
    if (connection_ == nullptr || !file_.resume(*connection_, deadline)) {
      connection_.reset();
      connection_ = file_.open(deadline);
      versionRead_.reset();
    }
    work(connection_);
    if (connection_ != nullptr) file_.rest(*connection_);
  } catch (...) {
    // What was begun ends with the connection.
    connection_.reset();
    throw;
  }
}

void DefaultsDatabase::noteMoved(const std::vector<std::string>& names) {
  for (const auto& name : names) movedAside_ += (movedAside_.empty() ? "" : ", ") + name;
}

DefaultsDatabase::Values DefaultsDatabase::read(Deadline& deadline) {
  Values values;
  work(deadline, [&](const Connection& connection) {
    if (connection != nullptr) values = readAll(*connection->database);
  });
  return values;
}

std::optional<DefaultsDatabase::Values> DefaultsDatabase::readIfChanged(Deadline& deadline) {
  std::optional<Values> values;
  workWithoutMending(deadline, [&](const Connection& connection) {
    if (connection == nullptr) {
      values.emplace();
      return;
    }
    const std::int64_t version = connection->database->dataVersion();
    if (versionRead_ == version) return;
    values = readAll(*connection->database);
    versionRead_ = version;
  });
  return values;
}

void DefaultsDatabase::write(const std::vector<Change>& changes, Deadline& deadline) {
  work(deadline, [&](Connection& connection) {
    if (connection == nullptr) {
      noteMoved(file_.create(deadline));
      connection = file_.open(deadline);
      if (connection == nullptr) throw std::runtime_error("the database has been removed");
    }
    writeAll(*connection->database, changes);
    const bool isFirstUse = connection->identity == DefaultsFile::Identity();
    connection->database->checkpointIfLongerThan(isFirstUse ? kLongestLogAtOpening : kLongestLog,
                                                 isFirstUse);
  });
}

void DefaultsDatabase::flush(Deadline& deadline) {
  work(deadline, [](const Connection& connection) {
    if (connection != nullptr) connection->database->checkpoint();
  });
}

}  // namespace ov
