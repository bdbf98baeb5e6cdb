#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/single_value.h>

#include "support/archive_builder.h"
#include "support/host_node.h"
#include "support/printers.h"
#include "support/refusal.h"

using testing::HasSubstr;

namespace {

using Any = OVList<OVObject>;
using Uid = ArchiveBuilder::Uid;

// 7
TEST(ArchiveGuards, APlainContainerThatHoldsItselfIsRefused) {
  ArchiveBuilder archive;
  const auto ring = archive.array({0});
  archive.references(ring) = {ring};
  EXPECT_THAT(refusal(archive.archive(archive.object("XYRing", {{"ring", ring}}))),
              HasSubstr("without end"));
}

// 7
TEST(ArchiveGuards, APlainRingOfDifferentContainersIsRefused) {
  ArchiveBuilder archive;
  const auto array = archive.array({0});
  const auto set = archive.set({array});
  const auto dictionary = archive.fields({{"next", set}});
  archive.references(array) = {dictionary};
  EXPECT_THAT(refusal(archive.archive(archive.object("XYRing", {{"ring", array}}))),
              HasSubstr("without end"));
}

// 7
TEST(ArchiveGuards, ARingOfArchivedObjectsIsLegal) {
  ArchiveBuilder archive;
  const Uid list = archive.reserve();
  const Uid dictionary =
      archive.dictionaryOf("NSMutableDictionary", {archive.addText("list")}, {list});
  archive.place(list,
                archive.fields({{"NS.objects", archive.toAll({dictionary, list})},
                                {"$class", archive.to(archive.classNamed("NSMutableArray"))}}));
  const auto read = unarchived<Any>(archive.archive(list));
  EXPECT_EQ((*read)[1], read);
  EXPECT_EQ((*ov::cast<OVDictionary<OVObject>>((*read)[0]))["list"], read);
  read->clear();
}

// 8
TEST(ArchiveGuards, PlainContainersInsideEachOtherAreRefusedPastABound) {
  const auto nested = [](int depth) {
    ArchiveBuilder archive;
    auto inner = archive.array({});
    for (int i = 1; i < depth; ++i) inner = archive.array({inner});
    return archive.archive(archive.object("XYDeep", {{"deep", inner}}));
  };
  EXPECT_EQ(refusal(nested(500)), "accepted");
  EXPECT_THAT(refusal(nested(520)), HasSubstr("without end"));
  EXPECT_THAT(refusal(nested(100000)), HasSubstr("without end"));
}

// 9: 2^100 arrays, if each were read whenever it is met.
TEST(ArchiveGuards, APlainContainerSharedOverAndOverIsRefused) {
  ArchiveBuilder archive;
  auto doubled = archive.array({});
  for (int i = 0; i < 100; ++i) doubled = archive.array({doubled, doubled});
  EXPECT_THAT(refusal(archive.archive(archive.object("XYBomb", {{"bomb", doubled}}))),
              HasSubstr("more memory"));
}

// 9
TEST(ArchiveGuards, AnArchivedContainerSharedOverAndOverIsReadOnce) {
  ArchiveBuilder archive;
  Uid doubled = archive.arrayOf("NSArray", {});
  for (int i = 0; i < 100; ++i) doubled = archive.arrayOf("NSArray", {doubled, doubled});
  auto read = unarchived<Any>(archive.archive(doubled));
  int depth = 0;
  for (; !read->empty(); ++depth) {
    EXPECT_EQ((*read)[0], (*read)[1]);
    read = ov::cast<Any>((*read)[0]);
  }
  EXPECT_EQ(depth, 100);
}

// 10
TEST(ArchiveGuards, AKeyThatIsNoTextIsRefused) {
  ArchiveBuilder archive;
  const auto odd = [&](const char* className) {
    return archive.add(
        archive.dictionary({archive.integer(5), archive.ascii("$class")},
                           {archive.integer(6), archive.to(archive.classNamed(className))}));
  };
  EXPECT_THAT(refusal(archive.archive(odd("XYUnknown"))), HasSubstr("key that is no text"));
  EXPECT_THAT(refusal(archive.archive(odd("OVLabel"))), HasSubstr("key that is no text"));
}

// 10
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
  EXPECT_EQ(read->size(), 1U);
  EXPECT_EQ((*read)["key"], "first");
}

// 11
TEST(ArchiveGuards, AUidPastTheEndIsRefused) {
  for (const Uid past : {Uid{100}, Uid{0xFFFF}, Uid{0xFFFFFFFF}}) {
    ArchiveBuilder archive;
    EXPECT_THAT(refusal(archive.archive(past)), HasSubstr("past the last"));
    EXPECT_THAT(refusal(archive.archive(archive.arrayOf("NSArray", {past}))),
                HasSubstr("past the last"));
    const Uid badClass = archive.add(archive.fields({{"$class", archive.to(past)}}));
    EXPECT_THAT(refusal(archive.archive(badClass)), HasSubstr("past the last"));
  }
  ArchiveBuilder archive;
  const auto widest = archive.uid(0xFFFFFFFFFFFFFFFF, 8);
  EXPECT_THAT(refusal(archive.archiveWithTop(archive.fields({{"root", widest}}))),
              HasSubstr("past the last"));
}

// 11
TEST(ArchiveGuards, KeysAndObjectsOfDifferentLengthAreRefused) {
  ArchiveBuilder archive;
  const Uid text = archive.addText("text");
  EXPECT_THAT(refusal(archive.archive(archive.dictionaryOf("NSDictionary", {text}, {}))),
              HasSubstr("1 keys and 0 values"));
  EXPECT_THAT(refusal(archive.archive(archive.dictionaryOf("NSMutableDictionary", {}, {text}))),
              HasSubstr("0 keys and 1 values"));
}

// 12
TEST(ArchiveGuards, AnObjectWithoutAClassIsRefused) {
  ArchiveBuilder archive;
  const Uid without = archive.add(archive.fields({{"name", archive.integer(1)}}));
  EXPECT_THAT(refusal(archive.archive(without)), HasSubstr("has no class"));
}

// 12
TEST(ArchiveGuards, AClassThatIsNoUidIsRefused) {
  ArchiveBuilder archive;
  const Uid object = archive.add(archive.fields({{"$class", archive.ascii("OVLabel")}}));
  EXPECT_THAT(refusal(archive.archive(object)), HasSubstr("no UID"));
}

// 12
TEST(ArchiveGuards, AClassThatIsNoClassRecordIsRefused) {
  ArchiveBuilder archive;
  const Uid nameless = archive.add(archive.fields({{"$classes", archive.array({})}}));
  const Uid numbered = archive.add(archive.fields({{"$classname", archive.integer(1)}}));
  const Uid unlisted = archive.add(archive.fields(
      {{"$classname", archive.ascii("XY")}, {"$classes", archive.ascii("NSObject")}}));
  const Uid listless = archive.add(archive.fields(
      {{"$classname", archive.ascii("XY")}, {"$classes", archive.array({archive.integer(1)})}}));
  for (const Uid bad :
       {Uid{0}, archive.addText("OVLabel"), nameless, numbered, unlisted, listless}) {
    const Uid object = archive.add(archive.fields({{"$class", archive.to(bad)}}));
    EXPECT_THAT(refusal(archive.archive(object)), HasSubstr("class")) << bad;
  }
}

// 13
TEST(ArchiveGuards, OnlyRegisteredClassesAreBuilt) {
  ArchiveBuilder archive;
  const auto read = unarchived(archive.archive(archive.object("NSTask", {})));
  EXPECT_EQ(ov::cast<OVOpaqueObject>(read)->className(), "NSTask");
}

// 13
TEST(ArchiveGuards, ATypedFieldChecksWhatItGets) {
  ArchiveBuilder archive;
  const Uid impostor = archive.object("OVObjectPhone", {});
  const Uid value = archive.object(
      "OVMutableSingleValue", {{"label", archive.to(impostor)}, {"value", archive.to(impostor)}});
  const auto read = unarchived<OVSingleValue>(archive.archive(value));
  EXPECT_EQ(read->label(), nullptr);
  EXPECT_NE(read->value(), nullptr);
}

// 14
TEST(ArchiveGuards, AnObjectMetHalfBuiltIsTheObjectThatIsFilledLater) {
  ArchiveBuilder archive;
  const Uid outer = archive.reserve();
  const Uid inner = archive.object("OVMutableSingleValue", {{"value", archive.to(outer)}});
  archive.place(
      outer, archive.fields({{"value", archive.to(inner)},
                             {"type", archive.integer(3)},
                             {"$class", archive.to(archive.classNamed("OVMutableSingleValue"))}}));
  const auto read = unarchived<OVMutableSingleValue>(archive.archive(outer));
  const auto readInner = ov::cast<OVMutableSingleValue>(read->value());
  EXPECT_EQ(readInner->value(), read);
  EXPECT_EQ(ov::cast<OVSingleValue>(readInner->value())->type(), OVValueTypeDate);
  read->setValue(nullptr);
}

// 15
TEST(ArchiveGuards, DatesThatAreNoDatesAreKeptAsNumbers) {
  using Limits = std::numeric_limits<double>;
  ArchiveBuilder archive;
  std::vector<Uid> dates;
  for (const double seconds :
       {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 1e300}) {
    dates.push_back(archive.object("NSDate", {{"NS.time", archive.real(seconds)}}));
    dates.push_back(archive.add(archive.date(seconds)));
  }
  const auto data = archive.archive(archive.arrayOf("NSArray", dates));
  const auto read = unarchived<OVList<OVDate>>(data);
  ASSERT_EQ(read->size(), 8U);
  for (const OVRef<OVDate> date : *read) EXPECT_EQ(date->day(), (OVDate::Day{0, 0, 0}));
  EXPECT_TRUE(std::isnan((*read)[0]->timeIntervalSinceReferenceDate()));
  EXPECT_TRUE(std::isnan((*read)[1]->timeIntervalSinceReferenceDate()));
  EXPECT_EQ((*read)[2]->timeIntervalSinceReferenceDate(), Limits::infinity());
  EXPECT_EQ((*read)[7]->timeIntervalSinceReferenceDate(), 1e300);
  EXPECT_EQ(archiveOf(read)->text(), archiveOf(unarchived(archiveOf(read)))->text());
}

}  // namespace
