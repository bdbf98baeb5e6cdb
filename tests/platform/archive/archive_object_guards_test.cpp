#include <cmath>
#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/single_value.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/refusal.h"
#include "support/printers.h"

using testing::HasSubstr;

namespace {

using Uid = ArchiveBuilder::Uid;

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

TEST(ArchiveGuards, KeysAndObjectsOfDifferentLengthAreRefused) {
  ArchiveBuilder archive;
  const Uid text = archive.addText("text");
  EXPECT_THAT(refusal(archive.archive(archive.dictionaryOf("NSDictionary", {text}, {}))),
              HasSubstr("1 keys and 0 values"));
  EXPECT_THAT(refusal(archive.archive(archive.dictionaryOf("NSMutableDictionary", {}, {text}))),
              HasSubstr("0 keys and 1 values"));
}

TEST(ArchiveGuards, AnObjectWithoutAClassIsRefused) {
  ArchiveBuilder archive;
  const Uid without = archive.add(archive.fields({{"name", archive.integer(1)}}));
  EXPECT_THAT(refusal(archive.archive(without)), HasSubstr("has no class"));
}

TEST(ArchiveGuards, AClassThatIsNoUidIsRefused) {
  ArchiveBuilder archive;
  const Uid object = archive.add(archive.fields({{"$class", archive.ascii("OVLabel")}}));
  EXPECT_THAT(refusal(archive.archive(object)), HasSubstr("not a UID"));
}

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

TEST(ArchiveGuards, OnlyRegisteredClassesAreBuilt) {
  ArchiveBuilder archive;
  const auto read = unarchived(archive.archive(archive.object("NSTask", {})));
  EXPECT_EQ(ov::cast<OVOpaqueObject>(read)->className(), "NSTask");
}

TEST(ArchiveGuards, ATypedFieldChecksWhatItGets) {
  ArchiveBuilder archive;
  const Uid impostor = archive.object("OVObjectPhone", {});
  const Uid value = archive.object(
      "OVMutableSingleValue", {{"label", archive.to(impostor)}, {"value", archive.to(impostor)}});
  const auto read = unarchived<OVSingleValue>(archive.archive(value));
  EXPECT_EQ(read->label(), nullptr);
  EXPECT_NE(read->value(), nullptr);
}

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
  ASSERT_EQ(read.size(), 8U);
  for (const OVRef<OVDate> date : read) EXPECT_EQ(date->day(), (OVDate::Day{0, 0, 0}));
  EXPECT_TRUE(std::isnan(read[0]->timeIntervalSinceReferenceDate()));
  EXPECT_TRUE(std::isnan(read[1]->timeIntervalSinceReferenceDate()));
  EXPECT_EQ(read[2]->timeIntervalSinceReferenceDate(), Limits::infinity());
  EXPECT_EQ(read[7]->timeIntervalSinceReferenceDate(), 1e300);
  EXPECT_EQ(archiveOf(read)->text(), archiveOf(unarchived(archiveOf(read)))->text());
}

}  // namespace
