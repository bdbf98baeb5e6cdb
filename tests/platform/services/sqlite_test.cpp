#include "platform/services/sqlite.h"

#include <chrono>
#include <string>

#include "support/processes/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using ov::sqlite::Database;
using ov::sqlite::Error;
using ov::sqlite::Statement;

class Sqlite : public testing::Test {
 protected:
  Sqlite() { writeFile(path_, ""); }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.at("database");
  ov::Deadline deadline_{std::chrono::milliseconds(20)};
};

TEST_F(Sqlite, WhatIsBoundIsReadBack) {
  Database database(path_, deadline_);
  database.execute("CREATE TABLE t (a, b, c, d, e)");
  Statement insert(database, "INSERT INTO t VALUES (?, ?, ?, ?, ?)");
  const std::byte bytes[] = {std::byte{0}, std::byte{255}};
  insert.bind(1, std::int64_t{-5});
  insert.bind(2, 0.5);
  insert.bind(3, std::string_view("t\0t", 3));
  insert.bind(4, bytes);
  insert.bindNull(5);
  EXPECT_FALSE(insert.step());
  Statement row(database, "SELECT * FROM t");
  ASSERT_TRUE(row.step());
  EXPECT_EQ(row.integer(0), -5);
  EXPECT_EQ(row.real(1), 0.5);
  EXPECT_EQ(row.text(2), std::string_view("t\0t", 3));
  EXPECT_THAT(row.bytes(3), testing::ElementsAreArray(bytes));
  EXPECT_FALSE(row.isNull(3));
  EXPECT_TRUE(row.isNull(4));
  EXPECT_FALSE(row.step());
}

TEST_F(Sqlite, MakesNoFile) {
  EXPECT_THROW(Database(folder_.at("absent"), deadline_), Error);
  EXPECT_FALSE(fs::exists(folder_.at("absent")));
}

TEST_F(Sqlite, FollowsNoSymbolicLink) {
  fs::create_symlink(path_, folder_.at("link"));
  EXPECT_THROW(Database(folder_.at("link"), deadline_), Error);
  fs::create_directory_symlink(folder_.path(), folder_.at("folder"));
  EXPECT_THROW(Database(folder_.at("folder") + "/database", deadline_), Error);
}

TEST_F(Sqlite, DistinguishesFilesThatAreAtFault) {
  const auto isInFile = [this](const std::string& path) {
    try {
      Database(path, deadline_).execute("SELECT * FROM t");
    } catch (const Error& error) {
      return error.isInFile();
    }
    return false;
  };
  EXPECT_TRUE(isInFile(path_));
  EXPECT_FALSE(isInFile(folder_.at("absent")));
  Database(path_, deadline_).execute("CREATE TABLE t (a)");
  EXPECT_FALSE(isInFile(path_));
  writeFile(path_, std::string(2000, '!'));
  EXPECT_TRUE(isInFile(path_));
  EXPECT_TRUE(Error::notADatabase().isInFile());
}

TEST_F(Sqlite, WaitsForLocksNoLongerThanTheDeadline) {
  Database holder(path_, deadline_);
  holder.execute("BEGIN EXCLUSIVE");
  Database other(path_, deadline_);
  try {
    other.execute("BEGIN IMMEDIATE");
    ADD_FAILURE() << "two connections have the lock";
  } catch (const Error& error) {
    EXPECT_FALSE(error.isInFile());
  }
  EXPECT_FALSE(deadline_.pause());
  holder.execute("COMMIT");
  other.execute("BEGIN IMMEDIATE");
}

}  // namespace
