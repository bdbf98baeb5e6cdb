#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/label.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/refusal.h"
#include "support/printers.h"

using testing::HasSubstr;

namespace {

using Uid = ArchiveBuilder::Uid;

TEST(ForeignArchives, XmlIsRefusedWithAClearMessage) {
  for (const char* xml : {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">",
                          "<!DOCTYPE plist>", "<plist version=\"1.0\"></plist>"}) {
    EXPECT_THAT(refusal(OVData::dataWithText(xml)), HasSubstr("XML"));
    EXPECT_THAT(refusal(OVData::dataWithText(xml)), HasSubstr("convert it"));
  }
}

TEST(ForeignArchives, NoDataIsRefused) {
  EXPECT_EQ(refusal(nullptr), "no data");
  EXPECT_EQ(refusal(OVData::dataWithText("")), "no data");
  EXPECT_THROW(static_cast<void>(OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(nullptr)),
               std::invalid_argument);
}

TEST(ForeignArchives, APropertyListThatIsNoArchiveIsRefused) {
  PlistBuilder text;
  text.ascii("just a text");
  EXPECT_THAT(refusal(OVData::dataWithText(text.list(0))), HasSubstr("not a keyed archive"));
  PlistBuilder settings;
  EXPECT_THAT(refusal(OVData::dataWithText(settings.list(settings.fields({})))),
              HasSubstr("not a keyed archive"));
}

TEST(ForeignArchives, TheHeadMayHaveItsKeysInAnyOrderAndMoreOfThem) {
  ArchiveBuilder archive;
  const auto top = archive.fields({{"root", archive.to(archive.addText("text"))}});
  EXPECT_EQ(unarchived<OVString>(archive.archiveWithHead({{"$objects", archive.objects()},
                                                          {"$top", top},
                                                          {"$extra", archive.null()},
                                                          {"$archiver", archive.archiver()},
                                                          {"$version", archive.version()}})),
            "text");
}

TEST(ForeignArchives, AHeadThatLacksSomethingIsRefused) {
  ArchiveBuilder archive;
  const auto top = archive.fields({{"root", archive.to(archive.addText("text"))}});
  const ArchiveBuilder::Fields whole{{"$version", archive.version()},
                                     {"$archiver", archive.archiver()},
                                     {"$top", top},
                                     {"$objects", archive.objects()}};
  for (std::size_t i = 0; i < whole.size(); ++i) {
    auto missing = whole;
    missing.erase(missing.begin() + static_cast<std::ptrdiff_t>(i));
    EXPECT_NE(refusal(archive.archiveWithHead(missing)), "accepted") << whole[i].first;
    if (whole[i].first == "$archiver") continue;
    auto wrong = whole;
    wrong[i].second = archive.ascii("of the wrong kind");
    EXPECT_THAT(refusal(archive.archiveWithHead(wrong)), HasSubstr(whole[i].first));
  }
}

TEST(ForeignArchives, AnotherVersionIsRefused) {
  ArchiveBuilder archive;
  const auto top = archive.fields({{"root", archive.to(0)}});
  for (const std::int64_t version : {0LL, 99999LL, 100001LL, 100000LL + (1LL << 32), -100000LL}) {
    EXPECT_THAT(refusal(archive.archiveWithHead({{"$version", archive.integer(version)},
                                                 {"$archiver", archive.archiver()},
                                                 {"$top", top},
                                                 {"$objects", archive.objects()}})),
                HasSubstr("version"));
  }
}

TEST(ForeignArchives, ObjectZeroMustBeNull) {
  ArchiveBuilder archive;
  archive.place(0, archive.ascii("$nil"));
  EXPECT_THAT(refusal(archive.archive(archive.addText("text"))), HasSubstr("$null"));
  ArchiveBuilder none;
  EXPECT_NE(refusal(none.archiveWithHead({{"$version", none.version()},
                                          {"$archiver", none.archiver()},
                                          {"$top", none.fields({{"root", none.to(0)}})},
                                          {"$objects", none.array({})}})),
            "accepted");
}

TEST(ForeignArchives, WithoutARootTheTopIsADictionaryOfItsEntries) {
  ArchiveBuilder archive;
  const Uid label = archive.object("OVLabel", {{"name", archive.to(archive.addText("Home"))}});
  const auto data = archive.archiveWithTop(archive.fields({{"label", archive.to(label)},
                                                           {"again", archive.to(label)},
                                                           {"number", archive.integer(5)},
                                                           {"label", archive.to(0)},
                                                           {"nothing", archive.to(0)}}));
  const auto read = unarchived<OVDictionary<OVObject>>(data);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read.size(), 4U);
  EXPECT_EQ(ov::cast<OVLabel>(read["label"])->name(), "Home");
  EXPECT_EQ(read["again"], read["label"]);
  EXPECT_NE(read["number"], nullptr);
  EXPECT_EQ(read["nothing"], nullptr);
  EXPECT_THAT(refusal(archive.archiveWithTop(archive.fields({}))), HasSubstr("no root"));
}

TEST(ForeignArchives, ARootThatIsNoReferenceIsRefused) {
  ArchiveBuilder archive;
  EXPECT_THAT(refusal(archive.archiveWithTop(archive.fields({{"root", archive.integer(1)}}))),
              HasSubstr("not a reference"));
}

TEST(ForeignArchives, AContainerThatIsNoObjectIsRefused) {
  ArchiveBuilder archive;
  EXPECT_THAT(refusal(archive.archive(archive.add(archive.array({})))), HasSubstr("container"));
  EXPECT_THAT(refusal(archive.archive(archive.add(archive.set({})))), HasSubstr("container"));
  EXPECT_NE(refusal(archive.archive(archive.add(archive.uid(0)))), "accepted");
}

TEST(ForeignArchives, ReferencesMustBeUids) {
  ArchiveBuilder archive;
  const auto bare = archive.array({archive.ascii("bare")});
  EXPECT_THAT(refusal(archive.archive(archive.object("NSArray", {{"NS.objects", bare}}))),
              HasSubstr("not a UID"));
  EXPECT_THAT(refusal(archive.archive(
                  archive.object("NSDictionary", {{"NS.keys", bare}, {"NS.objects", bare}}))),
              HasSubstr("not a UID"));
}

TEST(ForeignArchives, UidsMayBeOfAnyWidth) {
  for (unsigned width = 1; width <= 8; ++width) {
    ArchiveBuilder archive;
    const Uid text = archive.addText("text");
    const auto list = archive.array({archive.uid(text, width), archive.uid(0, width)});
    const Uid root = archive.add(archive.fields(
        {{"NS.objects", list}, {"$class", archive.uid(archive.classNamed("NSArray"), width)}}));
    const auto read = unarchived<OVList<OVString>>(
        archive.archiveWithTop(archive.fields({{"root", archive.uid(root, width)}})));
    EXPECT_EQ(read[0], "text") << width;
  }
}

TEST(ForeignArchives, SizesMayBeWiderThanNeeded) {
  for (unsigned offsetSize = 2; offsetSize <= 8; ++offsetSize) {
    ArchiveBuilder archive;
    archive.offsetSize = offsetSize;
    archive.referenceSize = 10 - offsetSize;
    const auto list = archive.arrayOf("NSArray", {archive.addText("text")});
    EXPECT_EQ(unarchived<OVList<OVString>>(archive.archive(list)).front(), "text") << offsetSize;
  }
}

TEST(ForeignArchives, KeysMayBeUtf16) {
  ArchiveBuilder archive;
  const Uid name = archive.addText("Home");
  const Uid label = archive.add(
      archive.dictionary({archive.utf16(u"$class"), archive.utf16(u"name")},
                         {archive.to(archive.classNamed("OVLabel")), archive.to(name)}));
  EXPECT_EQ(unarchived<OVLabel>(archive.archive(label))->name(), "Home");
}

}  // namespace
