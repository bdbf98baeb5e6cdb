// Saving and restoring on eight threads at once.

#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/archive/small_book.h"
#include "support/archive/host_node.h"
#include "support/processes/own_process.h"
#include "support/processes/together.h"

namespace {

std::string saved(const OVRef<OVObject>& object) {
  return std::string(OVKeyedArchiver::archivedDataWithRootObject(object)->text());
}

TEST(ArchiveThreads, EachSavesAndRestoresABookOfItsOwn) {
  const std::string expected = saved(smallBook());
  const auto blocks = fromEightThreads([] {
    std::string block;
    for (int round = 0; round < 10; ++round) {
      block = saved(bookIn(smallBook()->saveToData()));
    }
    return block;
  });
  EXPECT_THAT(blocks, testing::Each(expected));
}

TEST(ArchiveThreads, MaySaveOneBookThatNobodyChanges) {
  const auto book = smallBook();
  const std::string expected = saved(book);
  const auto blocks = fromEightThreads([&] {
    std::string block = saved(book);
    for (int round = 0; round < 50 && block == expected; ++round) block = saved(book);
    return block;
  });
  EXPECT_THAT(blocks, testing::Each(expected));
}

TEST(ArchiveThreads, MayRestoreOneBlock) {
  const auto block = smallBook()->saveToData();
  const auto restored = fromEightThreads([&] {
    OVRef<OVAddressBookGeneral> book;
    for (int round = 0; round < 10; ++round) book = bookIn(block);
    return book;
  });
  for (const auto& book : restored) EXPECT_EQ(saved(book), block->text());
}

TEST(ArchiveThreads, MayRestoreTheFirstBlockTogether) {
  expectInOwnProcess([] {
    const auto block = smallBook()->saveToData();
    const auto books = fromEightThreads([&] { return bookIn(block); });
    EXPECT_THAT(books, testing::Each(testing::NotNull()));
  });
}

TEST(ArchiveThreads, MayRegisterAHostsClassTogether) {
  expectInOwnProcess([] {
    const auto block = smallBook()->saveToData();
    const auto books = fromEightThreads([&] {
      HostNode::registerClass();
      return bookIn(block);
    });
    EXPECT_THAT(books, testing::Each(testing::NotNull()));
    EXPECT_NE(unarchived<HostNode>(archiveOf(HostNode::node("node"))), nullptr);
  });
}

}  // namespace
