#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookVCard/vcard_export.h>

#include "hosts/cards.h"
#include "support/printers.h"
#include "support/processes/child_process.h"
#include "support/processes/temporary_folder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> names(const TemporaryFolder& folder) {
  std::vector<std::string> all;
  for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
    all.push_back(file.path().filename().string());
  }
  std::sort(all.begin(), all.end());
  return all;
}

mode_t modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

OVRef<OVData> bytesOf(std::string_view text) { return OVData::dataWithText(text); }

TEST(Save, WritesWhatLoadReads) {
  const TemporaryFolder folder;
  const std::string path = folder.at("book.vcf");
  writeFile(path, card("UID:a\nN:L;F\nTEL;TYPE=home:1\nCATEGORIES:x") +
                      card("UID:g\nKIND:group\nFN:G\nMEMBER:a"));
  const auto book = OVVCardBook::initWithPath(path);
  ASSERT_FALSE(book->load());
  book->save();
  EXPECT_FALSE(book->saveError());
  EXPECT_THAT(names(folder), ElementsAre("book.vcf"));
  EXPECT_EQ(readFile(path), book->saveData()->text());

  const auto again = OVVCardBook::initWithPath(path);
  ASSERT_FALSE(again->load());
  EXPECT_THAT(problems(*again), IsEmpty());
  EXPECT_EQ(description(*again), description(*book));
  again->save();
  EXPECT_EQ(readFile(path), book->saveData()->text());
}

TEST(Save, MakesANewFile) {
  const TemporaryFolder folder;
  const std::string path = folder.at("new.vcf");
  const auto book = OVVCardBook::initWithPath(path);
  book->newPerson();
  book->save();
  EXPECT_FALSE(book->saveError());
  EXPECT_EQ(readFile(path), book->saveData()->text());
}

TEST(Save, OfABookWithoutAFileDoesNothing) {
  const auto book = OVVCardBook::init();
  book->save();
  EXPECT_FALSE(book->saveError());
}

TEST(Save, CallsTheBlockAfterwards) {
  const TemporaryFolder folder;
  const std::string path = folder.at("new.vcf");
  const auto book = OVVCardBook::initWithPath(path);
  bool wasThere = false;
  book->saveDataBlock([&] { wasThere = std::filesystem::exists(path); });
  EXPECT_TRUE(wasThere);
  book->saveDataBlock({});
}

TEST(Save, SaysWhatWentWrong) {
  const TemporaryFolder folder;
  const auto book = OVVCardBook::initWithPath(folder.at("none/book.vcf"));
  book->save();
  EXPECT_EQ(book->saveError(), std::errc::no_such_file_or_directory);
  std::filesystem::create_directory(folder.at("none"));
  book->save();
  EXPECT_FALSE(book->saveError());
}

TEST(WriteFile, KeepsTheMode) {
  const TemporaryFolder folder;
  const std::string path = folder.at("a");
  writeFile(path, "old");
  for (const mode_t mode : {mode_t{0640}, mode_t{0600}, mode_t{0666}, mode_t{0755}}) {
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    EXPECT_FALSE(ov::vcard::writeFile(path, bytesOf("new")));
    EXPECT_EQ(modeOf(path), mode);
  }
  EXPECT_EQ(readFile(path), "new");
}

TEST(WriteFile, ObeysTheUmaskForANewFile) {
  const TemporaryFolder folder;
  ChildProcess child([&] {
    ::umask(027);
    return !ov::vcard::writeFile(folder.at("a"), bytesOf("new"));
  });
  EXPECT_TRUE(child.succeeded());
  EXPECT_EQ(modeOf(folder.at("a")), mode_t{0640});
}

TEST(WriteFile, WritesThroughSymbolicLinks) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.at("real"));
  writeFile(folder.at("real/a"), "old");
  std::filesystem::create_symlink("real/a", folder.at("link"));
  std::filesystem::create_symlink("real/b", folder.at("dangling"));
  EXPECT_FALSE(ov::vcard::writeFile(folder.at("link"), bytesOf("new")));
  EXPECT_FALSE(ov::vcard::writeFile(folder.at("dangling"), bytesOf("newer")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.at("link")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.at("dangling")));
  EXPECT_EQ(readFile(folder.at("real/a")), "new");
  EXPECT_EQ(readFile(folder.at("real/b")), "newer");
}

TEST(WriteFile, LeavesTheOldFileWhenTheNewOneDoesNotFit) {
  const TemporaryFolder folder;
  writeFile(folder.at("a"), "old");
  ChildProcess child([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    return ov::vcard::writeFile(folder.at("a"), bytesOf(std::string(5000, 'x'))) ==
           std::errc::file_too_large;
  });
  EXPECT_TRUE(child.succeeded());
  EXPECT_THAT(names(folder), ElementsAre("a"));
  EXPECT_EQ(readFile(folder.at("a")), "old");
}

TEST(WriteFile, RefusesWhatIsNoPlaceForAFile) {
  const TemporaryFolder folder;
  EXPECT_TRUE(ov::vcard::writeFile(nullptr, bytesOf("x")));
  EXPECT_TRUE(ov::vcard::writeFile("", bytesOf("x")));
  EXPECT_TRUE(ov::vcard::writeFile(folder.path().string(), bytesOf("x")));
  std::filesystem::create_symlink("loop", folder.at("loop"));
  EXPECT_FALSE(ov::vcard::writeFile(folder.at("empty"), nullptr));
  EXPECT_EQ(readFile(folder.at("empty")), "");
  EXPECT_THAT(names(folder), ElementsAre("empty", "loop"));
}

}  // namespace
