// SQLite's connections and statements as objects, its errors as exceptions.

#include "platform/services/sqlite.h"

#include <sqlite3.h>

#include <new>

namespace ov::sqlite {

namespace {

void check(int code, sqlite3* connection) {
  if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
  if (code == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM) throw std::bad_alloc();
  throw Error(code, connection == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(connection));
}

/// A column that cannot be converted for want of memory reads like one without a value.
void checkMemory(sqlite3_stmt* statement) {
  if ((sqlite3_errcode(sqlite3_db_handle(statement)) & 0xFF) == SQLITE_NOMEM) {
    throw std::bad_alloc();
  }
}

void checkBind(int code, sqlite3_stmt* statement) { check(code, sqlite3_db_handle(statement)); }

int waitForLock(void* deadline, int /*tries*/) {
  return static_cast<Deadline*>(deadline)->pause() ? 1 : 0;
}

int noteLogPages(void* pages, sqlite3* /*connection*/, const char* /*name*/, int count) {
  *static_cast<int*>(pages) = count;
  return SQLITE_OK;
}

}  // namespace

Error Error::notADatabase() { return {SQLITE_NOTADB, sqlite3_errstr(SQLITE_NOTADB)}; }

bool Error::isInFile() const {
  const int kind = code_ & 0xFF;
  return kind == SQLITE_NOTADB || kind == SQLITE_CORRUPT || kind == SQLITE_ERROR;
}

void Database::Close::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

Database::Database(const std::string& path, Deadline& deadline) {
  constexpr int kFlags =
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &opened, kFlags, nullptr);
  connection_.reset(opened);
  check(code, opened);
  waitUntil(deadline);
  sqlite3_wal_hook(opened, &noteLogPages, &logPages_);
}

Database::~Database() = default;

void Database::waitUntil(Deadline& deadline) {
  deadline_ = &deadline;
  check(sqlite3_busy_handler(connection_.get(), &waitForLock, deadline_), connection_.get());
}

void Database::execute(const char* sql) {
  check(sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr), connection_.get());
}

std::int64_t Database::dataVersion() {
  if (dataVersion_ == nullptr) {
    dataVersion_ = std::make_unique<Statement>(*this, "PRAGMA data_version");
  }
  dataVersion_->step();
  const std::int64_t version = dataVersion_->integer(0);
  dataVersion_->reset();
  return version;
}

void Database::keepLogOnClose() {
  check(sqlite3_db_config(connection_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr),
        connection_.get());
}

void Database::checkpoint() {
  int code = SQLITE_OK;
  do {
    code = sqlite3_wal_checkpoint_v2(connection_.get(), nullptr, SQLITE_CHECKPOINT_TRUNCATE,
                                     nullptr, nullptr);
    // While another process does the same, SQLite gives up at once.
  } while ((code & 0xFF) == SQLITE_BUSY && deadline_->pause());
  check(code, connection_.get());
}

void Database::checkpointIfLongerThan(int pages, bool emptying) {
  if (logPages_ <= pages) return;
  // A log that somebody still reads stays as it is; the next commit tries again.
  check(sqlite3_busy_handler(connection_.get(), nullptr, nullptr), connection_.get());
  sqlite3_wal_checkpoint_v2(connection_.get(), nullptr,
                            emptying ? SQLITE_CHECKPOINT_TRUNCATE : SQLITE_CHECKPOINT_PASSIVE,
                            nullptr, nullptr);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement::Statement(Database& database, std::string_view sql) {
  sqlite3* connection = database.connection_.get();
  sqlite3_stmt* prepared = nullptr;
  check(
      sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()), &prepared, nullptr),
      connection);
  statement_.reset(prepared);
}

void Statement::bindNull(int parameter) {
  checkBind(sqlite3_bind_null(statement_.get(), parameter), statement_.get());
}

void Statement::bind(int parameter, std::int64_t value) {
  checkBind(sqlite3_bind_int64(statement_.get(), parameter, value), statement_.get());
}

void Statement::bind(int parameter, double value) {
  checkBind(sqlite3_bind_double(statement_.get(), parameter, value), statement_.get());
}

void Statement::bind(int parameter, std::string_view text) {
  checkBind(sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(),
                                SQLITE_STATIC, SQLITE_UTF8),
            statement_.get());
}

void Statement::bind(int parameter, std::span<const std::byte> bytes) {
  checkBind(
      sqlite3_bind_blob64(statement_.get(), parameter, bytes.data(), bytes.size(), SQLITE_STATIC),
      statement_.get());
}

bool Statement::step() {
  const int code = sqlite3_step(statement_.get());
  check(code, sqlite3_db_handle(statement_.get()));
  return code == SQLITE_ROW;
}

void Statement::reset() {
  check(sqlite3_reset(statement_.get()), sqlite3_db_handle(statement_.get()));
}

bool Statement::isNull(int column) const {
  return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

double Statement::real(int column) const { return sqlite3_column_double(statement_.get(), column); }

std::string_view Statement::text(int column) const {
  const auto* characters = sqlite3_column_text(statement_.get(), column);
  if (characters == nullptr) {
    checkMemory(statement_.get());
    return {"", 0};
  }
  return {reinterpret_cast<const char*>(characters),
          static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

std::span<const std::byte> Statement::bytes(int column) const {
  const auto* place = static_cast<const std::byte*>(sqlite3_column_blob(statement_.get(), column));
  if (place == nullptr) {
    checkMemory(statement_.get());
    return {};
  }
  return {place, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

}  // namespace ov::sqlite
