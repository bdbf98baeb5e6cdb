#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/label.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/plist_text.h"
#include "support/archive/refusal.h"
#include "support/printers.h"

using testing::HasSubstr;

namespace {

using Any = OVList<OVObject>;
using Uid = ArchiveBuilder::Uid;

TEST(ArchiveGuards, APlainContainerThatHoldsItselfIsRefused) {
  ArchiveBuilder archive;
  const auto ring = archive.array({0});
  archive.references(ring) = {ring};
  EXPECT_THAT(refusal(archive.archive(archive.object("XYRing", {{"ring", ring}}))),
              HasSubstr("nested too deeply"));
}

TEST(ArchiveGuards, APlainRingOfDifferentContainersIsRefused) {
  ArchiveBuilder archive;
  const auto array = archive.array({0});
  const auto set = archive.set({array});
  const auto dictionary = archive.fields({{"next", set}});
  archive.references(array) = {dictionary};
  EXPECT_THAT(refusal(archive.archive(archive.object("XYRing", {{"ring", array}}))),
              HasSubstr("nested too deeply"));
}

TEST(ArchiveGuards, ARingOfArchivedObjectsIsLegal) {
  ArchiveBuilder archive;
  const Uid list = archive.reserve();
  const Uid dictionary =
      archive.dictionaryOf("NSMutableDictionary", {archive.addText("list")}, {list});
  archive.place(list,
                archive.fields({{"NS.objects", archive.toAll({dictionary, list})},
                                {"$class", archive.to(archive.classNamed("NSMutableArray"))}}));
  const auto read = unarchived<Any>(archive.archive(list));
  EXPECT_EQ(read[1], read.object());
  EXPECT_EQ(ov::cast<OVDictionary<OVObject>>(read[0])["list"], read.object());
  read.clear();
}

TEST(ArchiveGuards, PlainContainersInsideEachOtherAreRefusedPastABound) {
  const auto nested = [](int depth) {
    ArchiveBuilder archive;
    auto inner = archive.array({});
    for (int i = 1; i < depth; ++i) inner = archive.array({inner});
    return archive.archive(archive.object("XYDeep", {{"deep", inner}}));
  };
  EXPECT_EQ(refusal(nested(500)), "accepted");
  EXPECT_THAT(refusal(nested(520)), HasSubstr("nested too deeply"));
  EXPECT_THAT(refusal(nested(100000)), HasSubstr("nested too deeply"));
}

// 2^100 arrays, if each were read whenever it is met.
TEST(ArchiveGuards, APlainContainerSharedOverAndOverIsRefused) {
  ArchiveBuilder archive;
  auto doubled = archive.array({});
  for (int i = 0; i < 100; ++i) doubled = archive.array({doubled, doubled});
  EXPECT_THAT(refusal(archive.archive(archive.object("XYBomb", {{"bomb", doubled}}))),
              HasSubstr("more memory"));
}

TEST(ArchiveGuards, AnArchivedContainerSharedOverAndOverIsReadOnce) {
  ArchiveBuilder archive;
  Uid doubled = archive.arrayOf("NSArray", {});
  for (int i = 0; i < 100; ++i) doubled = archive.arrayOf("NSArray", {doubled, doubled});
  auto read = unarchived<Any>(archive.archive(doubled));
  int depth = 0;
  for (; !read.empty(); ++depth) {
    EXPECT_EQ(read[0], read[1]);
    read = ov::cast<Any>(read[0]);
  }
  EXPECT_EQ(depth, 100);
}

TEST(ArchiveGuards, AKeyThatIsNoTextIsRefused) {
  ArchiveBuilder archive;
  const auto odd = [&](const char* className) {
    return archive.add(
        archive.dictionary({archive.integer(5), archive.ascii("$class")},
                           {archive.integer(6), archive.to(archive.classNamed(className))}));
  };
  EXPECT_THAT(refusal(archive.archive(odd("XYUnknown"))), HasSubstr("key that is not text"));
  EXPECT_THAT(refusal(archive.archive(odd("OVLabel"))), HasSubstr("key that is not text"));
}

TEST(ArchiveGuards, OfAKeyTwiceTheFirstCounts) {
  ArchiveBuilder archive;
  const Uid label = archive.object("OVLabel", {{"name", archive.to(archive.addText("first"))},
                                               {"name", archive.to(archive.addText("second"))}});
  EXPECT_EQ(unarchived<OVLabel>(archive.archive(label))->name(), "first");
  const Uid key = archive.addText("key");
  const Uid dictionary = archive.dictionaryOf(
      "NSDictionary", {key, key, archive.addText("key")},
      {archive.addText("first"), archive.addText("second"), archive.addText("third")});
  const auto read = unarchived<OVDictionary<OVString>>(archive.archive(dictionary));
  EXPECT_EQ(read.size(), 1U);
  EXPECT_EQ(read["key"], "first");
}

TEST(ArchiveGuards, EntriesOfTheTopWithARepeatedKeyAreWrittenBack) {
  ArchiveBuilder archive;
  const auto text = [&](const char* each) { return archive.to(archive.addText(each)); };
  const auto top = archive.fields({{"a", text("first")}, {"a", text("second")}});
  const auto read = unarchived<OVDictionary<OVString>>(archive.archiveWithTop(top));
  EXPECT_EQ(read["a"], "first");
  EXPECT_EQ(archivedObjects(archiveOf(read))[1],
            "{NS.keys: [#2, #2], NS.objects: [#3, #4], $class: #5}");
}

TEST(ArchiveGuards, EntriesWithARepeatedKeyAreWrittenBack) {
  ArchiveBuilder archive;
  const auto text = [&](const char* each) { return archive.addText(each); };
  const Uid dictionary = archive.dictionaryOf("NSDictionary", {text("a"), text("b"), text("a")},
                                              {text("first"), text("other"), text("second")});
  const auto read = unarchived<OVDictionary<OVString>>(archive.archive(dictionary));
  const auto written = archiveOf(read);
  EXPECT_EQ(archivedObjects(written)[1],
            "{NS.keys: [#2, #4, #2], NS.objects: [#3, #5, #6], $class: #7}");
  EXPECT_TRUE(archiveOf(unarchived(written))->text() == written->text());
  read.erase("a");
  EXPECT_EQ(archivedObjects(archiveOf(read))[1], "{NS.keys: [#2], NS.objects: [#3], $class: #4}");
}

}  // namespace
