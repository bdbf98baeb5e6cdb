#include "platform/services/directory.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/processes/temporary_folder.h"

namespace {

std::vector<std::filesystem::path> flushed;

}  // namespace

/// Replaces the system's function in this program, and notes what is flushed.
extern "C" int fsync(int descriptor) {
  flushed.push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor)));
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}

namespace {

using Paths = std::vector<std::filesystem::path>;

class Directories : public testing::Test {
 protected:
  Directories() : top_(std::filesystem::canonical(folder_.path())) { flushed.clear(); }

  TemporaryFolder folder_;
  const std::filesystem::path top_;
};

TEST_F(Directories, EachNewOneIsFlushedIntoItsParent) {
  ov::createDirectories((top_ / "a" / "b").string());
  EXPECT_TRUE(std::filesystem::is_directory(top_ / "a" / "b"));
  EXPECT_EQ(flushed, (Paths{top_, top_ / "a"}));
}

TEST_F(Directories, ThoseThatAreThereAreNotFlushed) {
  ov::createDirectories(top_.string());
  EXPECT_EQ(flushed, Paths());
}

TEST_F(Directories, AreForTheirOwnerAlone) {
  ov::createDirectories((top_ / "a").string());
  EXPECT_EQ(std::filesystem::status(top_ / "a").permissions(), std::filesystem::perms::owner_all);
}

TEST_F(Directories, FlushIsOfTheFolderItself) {
  ov::Directory(top_.string()).flush();
  EXPECT_EQ(flushed, Paths{top_});
}

}  // namespace
