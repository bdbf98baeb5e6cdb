// The database file. A new one is made under another name and renamed when it is complete, so that
// nobody ever sees half of one; a foreign or damaged one is renamed, never overwritten.

#include "platform/services/defaults_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <system_error>

#include "platform/services/file_descriptor.h"

namespace ov {

namespace {

using sqlite::Database;
using sqlite::Error;
using sqlite::Statement;

// Found on the disks of every user: do not change.
constexpr const char* kName = "/user-defaults.db";
constexpr std::int64_t kApplicationId = 0x4F564142;
constexpr const char* kSchema =
    "PRAGMA synchronous = OFF;"  // the file is unfinished, and flushed once it is not
    "CREATE TABLE defaults (key TEXT NOT NULL PRIMARY KEY, kind INTEGER NOT NULL, value);"
    "PRAGMA journal_mode = WAL;";

constexpr std::array<const char*, 3> kSuffixes = {"", "-wal", "-shm"};

[[noreturn]] void fail(const std::string& path) {
  throw std::system_error(errno, std::generic_category(), path);
}

enum class Entry { kNone, kFile, kOther };

/// What is there; symbolic links are not followed.
Entry entryAt(const std::string& path) {
  struct stat status;
  if (lstat(path.c_str(), &status) == 0) {
    return S_ISREG(status.st_mode) ? Entry::kFile : Entry::kOther;
  }
  if (errno != ENOENT) fail(path);
  return Entry::kNone;
}

/// Which files these are, and, of the database itself, that nobody has changed it since. It changes
/// when the log is copied into it, after which opening it once more is harmless.
DefaultsFile::Identity identityOf(const std::string& path) {
  struct stat file = {};
  struct stat log = {};
  if (lstat(path.c_str(), &file) != 0 || lstat((path + "-wal").c_str(), &log) != 0) return {};
  const auto number = [](auto value) { return static_cast<std::uint64_t>(value); };
  return {{1, number(file.st_dev), number(file.st_ino), number(file.st_size),
           number(file.st_mtim.tv_sec), number(file.st_mtim.tv_nsec), number(log.st_dev),
           number(log.st_ino)}};
}

std::unique_ptr<Database> connect(const std::string& path, Deadline& deadline) {
  for (const char* suffix : kSuffixes) {
    if (entryAt(path + suffix) == Entry::kOther) throw Error::notADatabase();
  }
  auto database = std::make_unique<Database>(path, deadline);
  database->keepLogOnClose();
  database->execute("PRAGMA synchronous = NORMAL");
  Statement identifier(*database, "PRAGMA application_id");
  if (!identifier.step() || identifier.integer(0) != kApplicationId) throw Error::notADatabase();
  return database;
}

bool isSound(const std::string& path, Deadline& deadline) {
  try {
    const auto database = connect(path, deadline);
    const Statement fitting(*database, "SELECT key, kind, value FROM defaults");
    Statement integrity(*database, "PRAGMA integrity_check(1)");
    return integrity.step() && integrity.text(0) == "ok";
  } catch (const Error& error) {
    if (error.isInFile()) return false;
    throw;
  }
}

std::string freeNameBeside(const std::string& path) {
  for (int number = 1;; ++number) {
    std::string name = path + ".aside-" + std::to_string(number);
    if (std::all_of(kSuffixes.begin(), kSuffixes.end(), [&name](const char* suffix) {
          return entryAt(name + suffix) == Entry::kNone;
        })) {
      return name;
    }
  }
}

void renameFile(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) fail(from);
}

/// Renames those of the database's files that are what `wanted` says.
template <class Test>
void moveFiles(const std::string& path, Test wanted, std::vector<std::string>& moved) {
  const std::string name = freeNameBeside(path);
  for (const char* suffix : kSuffixes) {
    if (!wanted(entryAt(path + suffix))) continue;
    renameFile(path + suffix, name + suffix);
    moved.push_back(name + suffix);
  }
}

bool isThere(Entry entry) { return entry != Entry::kNone; }
bool isOther(Entry entry) { return entry == Entry::kOther; }

void removeUnfinished(const std::string& path) {
  for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
    if (unlink((path + suffix).c_str()) != 0 && errno != ENOENT) fail(path + suffix);
  }
}

/// A complete database, safely on the disk.
void build(const std::string& path, Deadline& deadline) {
  const FileDescriptor file(
      open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (file.number() < 0) fail(path);
  const std::string identity = "PRAGMA application_id = " + std::to_string(kApplicationId) + ";";
  Database(path, deadline).execute((identity + kSchema).c_str());
  if (fsync(file.number()) != 0) fail(path);
}

}  // namespace

std::unique_ptr<DefaultsFile::Connection> DefaultsFile::open(Deadline& deadline) const {
  const std::string folder = realPath(directory_);
  if (folder.empty()) return nullptr;
  auto connection = std::make_unique<Connection>(folder);
  connection->folder.lockShared(deadline);
  if (entryAt(folder + kName) == Entry::kNone) return nullptr;
  connection->database = connect(folder + kName, deadline);
  return connection;
}

void DefaultsFile::rest(Connection& connection) const {
  connection.identity = identityOf(directory_ + kName);
  connection.folder.unlock();
}

bool DefaultsFile::resume(Connection& connection, Deadline& deadline) const {
  if (connection.identity == Identity()) return false;
  connection.folder.lockShared(deadline);
  if (identityOf(directory_ + kName) != connection.identity) return false;
  connection.database->waitUntil(deadline);
  return true;
}

std::vector<std::string> DefaultsFile::create(Deadline& deadline) const {
  if (directory_.empty()) throw std::system_error(ENOENT, std::generic_category(), "home folder");
  createDirectories(directory_);
  const std::string folder = realPath(directory_);
  const Directory directory(folder);
  directory.lock(deadline);

  std::vector<std::string> moved;
  const std::string path = folder + kName;
  if (entryAt(path) != Entry::kNone) return moved;
  // A log whose database has gone would be taken for the new one's.
  moveFiles(path, &isThere, moved);
  const std::string unfinished = path + ".new";
  removeUnfinished(unfinished);
  try {
    build(unfinished, deadline);
    renameFile(unfinished, path);
  } catch (...) {
    removeUnfinished(unfinished);
    throw;
  }
  directory.flush();
  return moved;
}

std::vector<std::string> DefaultsFile::moveAside(Deadline& deadline) const {
  const std::string folder = realPath(directory_);
  const Directory directory(folder);
  directory.lock(deadline);

  // Another process may have been here first: look again before anything is moved.
  std::vector<std::string> moved;
  const std::string path = folder + kName;
  moveFiles(path, &isOther, moved);
  if (entryAt(path) == Entry::kFile && !isSound(path, deadline)) moveFiles(path, &isThere, moved);
  return moved;
}

}  // namespace ov
