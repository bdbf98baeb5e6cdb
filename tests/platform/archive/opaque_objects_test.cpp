#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/plist_text.h"
#include "support/memory/leaks_tolerated.h"
#include "support/printers.h"

using testing::ElementsAre;

namespace {

using Uid = ArchiveBuilder::Uid;

/// The objects of an archive with one object of an unknown class.
std::vector<std::string> writtenBack(ArchiveBuilder& archive, ArchiveBuilder::Fields fields) {
  return archivedObjects(passedThrough(archive.archive(archive.object("XY", std::move(fields)))));
}

TEST(OpaqueObjects, TellTheirClassAndFields) {
  ArchiveBuilder archive;
  const Uid record = archive.classRecord("XYPlane", {"XYVehicle", "NSObject"});
  const Uid label = archive.object("OVLabel", {{"name", archive.to(archive.addText("Home"))}});
  const Uid plane = archive.add(archive.fields({{"wings", archive.integer(2)},
                                                {"label", archive.to(label)},
                                                {"$class", archive.to(record)},
                                                {"cargo", archive.to(0)}}));
  const auto read = unarchived<OVOpaqueObject>(archive.archive(plane));
  EXPECT_EQ(read->className(), "XYPlane");
  EXPECT_THAT(read->classes(), ElementsAre("XYPlane", "XYVehicle", "NSObject"));
  EXPECT_TRUE(read->classHints().empty());
  const auto fields = read->fields();
  ASSERT_EQ(fields.size(), 3U);
  const auto& [wingsKey, wings] = fields[0];
  EXPECT_EQ(wingsKey, "wings");
  const auto number = ov::cast<OVNumber>(std::get<OVOpaqueValue::Inline>(wings.content).object);
  EXPECT_EQ(number->integerValue(), 2);
  const auto& held = std::get<OVOpaqueValue::Reference>(fields[1].value.content);
  EXPECT_EQ(ov::cast<OVLabel>(held.object)->name(), "Home");
  EXPECT_EQ(std::get<OVOpaqueValue::Reference>(fields[2].value.content).object, nullptr);
}

TEST(OpaqueObjects, AreWrittenBackInTheOrderOfTheirFields) {
  ArchiveBuilder archive;
  EXPECT_THAT(writtenBack(archive, {{"b", archive.integer(1)}, {"a", archive.to(0)}}),
              ElementsAre("\"$null\"", "{b: 1, a: #0, $class: #2}",
                          "{$classname: \"XY\", $classes: [\"XY\", \"NSObject\"]}"));
}

TEST(OpaqueObjects, KeepEveryKindOfPlainValue) {
  ArchiveBuilder archive;
  EXPECT_EQ(writtenBack(archive, {{"true", archive.boolean(true)},
                                  {"negative", archive.integer(-1)},
                                  {"huge", archive.raw("\x14" + std::string(8, '\0') + "\xFF" +
                                                       std::string(7, '\0'))},
                                  {"real", archive.real(0.5)},
                                  {"date", archive.date(-3)},
                                  {"data", archive.bytes("\x01")},
                                  {"text", archive.utf16(u"é")},
                                  {"null", archive.null()}})[1],
            "{true: true, negative: -1, huge: 18374686479671623680, real: 0.5, date: @-3.0, "
            "data: <01>, text: \"é\", null: null, $class: #2}");
}

TEST(OpaqueObjects, KeepContainersInsideThem) {
  ArchiveBuilder archive;
  const auto inner = archive.fields({{"$class", archive.integer(1)}, {"of", archive.array({})}});
  const auto array =
      archive.array({inner, archive.to(archive.addText("a")), archive.boolean(false)});
  EXPECT_EQ(writtenBack(archive, {{"array", array}, {"set", archive.set({archive.integer(7)})}})[1],
            "{array: [{$class: 1, of: []}, #2, false], set: (7), $class: #3}");
}

TEST(OpaqueObjects, KeepKeysThatBeginWithADollarAsTheyAre) {
  ArchiveBuilder archive;
  const Uid text = archive.addText("unkeyed");
  EXPECT_EQ(writtenBack(archive, {{"$0", archive.to(text)},
                                  {"$1", archive.integer(5)},
                                  {"$$own", archive.integer(6)}})[1],
            "{$0: #2, $1: 5, $$own: 6, $class: #3}");
}

TEST(OpaqueObjects, KeepWhatTheyShareWithOthers) {
  ArchiveBuilder archive;
  const Uid date = archive.object("NSDate", {{"NS.time", archive.real(1)}});
  const Uid unknown = archive.object("XY", {{"date", archive.to(date)}});
  const auto read = unarchived<OVList<OVObject>>(
      passedThrough(archive.archive(archive.arrayOf("NSArray", {date, unknown, unknown}))));
  const auto opaque = ov::cast<OVOpaqueObject>(read[1]);
  EXPECT_EQ(read[2], opaque);
  EXPECT_EQ(std::get<OVOpaqueValue::Reference>(opaque->fields()[0].value.content).object, read[0]);
}

// Nothing can untie a ring of opaque objects.
TEST(OpaqueObjects, MayBeInARing) {
  const LeaksTolerated tolerated;
  ArchiveBuilder archive;
  const Uid ring = archive.reserve();
  archive.place(ring, archive.fields({{"self", archive.to(ring)},
                                      {"$class", archive.to(archive.classNamed("XYRing"))}}));
  const auto read = unarchived<OVOpaqueObject>(archive.archive(ring));
  EXPECT_EQ(std::get<OVOpaqueValue::Reference>(read->fields()[0].value.content).object, read);
  EXPECT_EQ(archivedObjects(archiveOf(read))[1], "{self: #1, $class: #2}");
}

TEST(OpaqueObjects, KeepClassHintsAndNameOnlyRecords) {
  ArchiveBuilder archive;
  const Uid hinted = archive.add(archive.fields(
      {{"$classhints", archive.array({archive.ascii("XYOld")})},
       {"$classname", archive.ascii("XYNew")},
       {"$classes", archive.array({archive.ascii("XYNew"), archive.ascii("NSObject")})}}));
  const Uid named = archive.add(archive.fields({{"$classname", archive.ascii("XYNamed")}}));
  const Uid first = archive.add(archive.fields({{"$class", archive.to(hinted)}}));
  const Uid second = archive.add(archive.fields({{"$class", archive.to(named)}}));
  const auto data = archive.archive(archive.arrayOf("NSArray", {first, second}));
  const auto read = unarchived<OVList<OVOpaqueObject>>(data);
  EXPECT_THAT(read[0]->classHints(), ElementsAre("XYOld"));
  EXPECT_TRUE(read[1]->classes().empty());
  const auto written = archivedObjects(archiveOf(read));
  EXPECT_THAT(written, testing::Contains("{$classname: \"XYNew\", $classes: [\"XYNew\", "
                                         "\"NSObject\"], $classhints: [\"XYOld\"]}"));
  EXPECT_THAT(written, testing::Contains("{$classname: \"XYNamed\"}"));
}

TEST(OpaqueObjects, OfOneClassShareItsRecord) {
  ArchiveBuilder archive;
  const Uid first = archive.object("XY", {});
  const Uid record = archive.classRecord("XY", {"NSObject"});
  const Uid second = archive.add(archive.fields({{"$class", archive.to(record)}}));
  const auto written =
      archivedObjects(passedThrough(archive.archive(archive.arrayOf("NSArray", {first, second}))));
  EXPECT_THAT(written, ElementsAre("\"$null\"", "{NS.objects: [#2, #3], $class: #4}",
                                   "{$class: #5}", "{$class: #5}", testing::_, testing::_));
}

TEST(OpaqueObjects, AreValuesLikeAnyObject) {
  ArchiveBuilder archive;
  const Uid unknown = archive.object("XY", {{"n", archive.integer(1)}});
  const auto root =
      archive.dictionaryOf("NSMutableDictionary", {archive.addText("key")}, {unknown});
  const auto data = passedThrough(archive.archive(root));
  EXPECT_TRUE(passedThrough(data)->text() == data->text());
}

}  // namespace
