// The rooms of the reader of archives, each by itself.

#include <memory>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>

#include "platform/archive/archive_reader.h"
#include "platform/archive/class_table.h"
#include "platform/archive/foundation_forms.h"
#include "platform/archive/opaque_reader.h"
#include "platform/archive/plain_entries.h"
#include "platform/archive/read_classes.h"
#include "platform/archive/read_fields.h"
#include "platform/archive/read_leaves.h"
#include "platform/archive/read_objects.h"
#include "platform/archive/reading_budget.h"
#include "support/archive/archive_builder.h"

using ov::detail::ArchivedClass;
using ov::detail::ArchiveFields;
using ov::detail::ArchiveReader;
using ov::detail::ArchiveSlot;
using ov::detail::ClassLookup;
using ov::detail::FoundationForms;
using ov::detail::ObjectArena;
using ov::detail::OpaqueReader;
using ov::detail::PlistItem;
using ov::detail::PlistReader;
using ov::detail::ReadClasses;
using ov::detail::ReadFields;
using ov::detail::ReadingBudget;
using ov::detail::ReadLeaves;
using ov::detail::ReadObjects;
using Kind = PlistItem::Kind;
using Uid = ArchiveBuilder::Uid;

namespace {

/// An archive whose objects are listed, and nothing else is read.
struct Rooms {
  explicit Rooms(OVRef<OVData> block, ClassLookup known)
      : data(std::move(block)),
        plist(data->bytes()),
        objects(plist),
        leaves(plist, arena),
        classes(plist, objects, leaves, known),
        fields(plist, classes),
        forms(plist, objects, leaves, fields, known != nullptr) {
    objects.open(requiredEntry(plist, head(), "$objects", Kind::array));
  }
  PlistItem head() { return plist.item(plist.top()); }

  OVRef<OVData> data;
  PlistReader plist;
  ObjectArena arena{1000};
  ReadObjects objects;
  ReadLeaves leaves;
  ReadClasses classes;
  ReadFields fields;
  FoundationForms forms;
};

class ArchiveReaderRooms : public testing::Test {
 protected:
  Rooms& rooms(ClassLookup known = ov::detail::registeredClass) {
    rooms_ = std::make_unique<Rooms>(archive_.archive(0), known);
    return *rooms_;
  }

  ArchiveBuilder archive_;

 private:
  std::unique_ptr<Rooms> rooms_;
};

TEST(ReadingBudget, IsRefusedWhenItIsSpent) {
  ReadingBudget budget(0);
  budget.charge(1 << 18);
  budget.charge(0);
  EXPECT_THROW(budget.charge(1), OVInvalidArchive);
  EXPECT_NO_THROW(ReadingBudget(1).charge((1 << 18) + 40));
}

TEST_F(ArchiveReaderRooms, PlainEntriesAreFoundByTheirKeys) {
  Rooms& rooms = this->rooms();
  PlistReader& plist = rooms.plist;
  const PlistItem head = rooms.head();
  EXPECT_EQ(plist.integer(requiredEntry(plist, head, "$version", Kind::integer)).value, 100000);
  EXPECT_FALSE(plainEntry(plist, head, "$absent"));
  EXPECT_THROW((void)requiredEntry(plist, head, "$absent", Kind::array), OVInvalidArchive);
  EXPECT_THROW((void)requiredEntry(plist, head, "$version", Kind::array), OVInvalidArchive);
}

TEST_F(ArchiveReaderRooms, ObjectsAreReachedByTheirUids) {
  const Uid text = archive_.addText("text");
  const auto reference = archive_.to(text);
  const auto past = archive_.to(text + 1);
  Rooms& rooms = this->rooms();
  EXPECT_EQ(rooms.objects.uidOf(reference), text);
  EXPECT_EQ(rooms.leaves.text(rooms.objects.item(text)), "text");
  EXPECT_THROW((void)rooms.objects.uidOf(past), OVInvalidArchive);
  EXPECT_THROW((void)rooms.objects.uidOf(rooms.objects.itemNumber(text)), OVInvalidArchive);
  ArchiveSlot& slot = rooms.objects.slot(text);
  EXPECT_TRUE(slot.isEmpty());
  slot.set(OVString("made"));
  (void)rooms.objects.slot(0);
  EXPECT_EQ(rooms.objects.slot(text).text(), "made");
}

TEST_F(ArchiveReaderRooms, LeavesBecomeObjects) {
  const Uid text = archive_.addText("text");
  const Uid number = archive_.add(archive_.integer(7));
  const Uid bytes = archive_.add(archive_.bytes(std::string(100, 'b')));
  Rooms& rooms = this->rooms();
  EXPECT_EQ(rooms.leaves.text(rooms.objects.item(text)), "text");
  EXPECT_EQ(ov::cast<OVNumber>(rooms.leaves.leaf(rooms.objects.item(number)))->integerValue(), 7);
  const PlistItem data = rooms.objects.item(bytes);
  EXPECT_NE(rooms.leaves.leaf(data), rooms.leaves.leaf(data));
  EXPECT_EQ(rooms.leaves.sharedLeaf(data), rooms.leaves.sharedLeaf(data));
  EXPECT_THROW((void)rooms.leaves.leaf(rooms.head()), OVInvalidArchive);
}

TEST_F(ArchiveReaderRooms, AClassIsKnownByItsRecord) {
  const auto label = archive_.to(archive_.classRecord("OVLabel", {"NSObject"}));
  const auto other = archive_.to(archive_.classRecord("Other", {"Parent", "NSObject"}));
  const auto text = archive_.to(archive_.addText("text"));
  Rooms& rooms = this->rooms();
  EXPECT_EQ(rooms.classes.record(label).known, &OVLabel::archivedClass());
  EXPECT_FALSE(rooms.classes.record(label).isHosts);
  const ArchivedClass& unknown = rooms.classes.record(other);
  EXPECT_EQ(unknown.known, nullptr);
  EXPECT_EQ(unknown.name, "Other");
  EXPECT_EQ(unknown.classes[1], "Parent");
  EXPECT_EQ(&rooms.classes.record(other), &unknown);
  EXPECT_THROW((void)rooms.classes.record(text), OVInvalidArchive);
  EXPECT_EQ(this->rooms(nullptr).classes.record(label).known, nullptr);
}

TEST_F(ArchiveReaderRooms, FieldsAreFoundByTheirKeys) {
  const auto value = archive_.integer(1);
  const auto second = archive_.integer(2);
  const Uid one = archive_.object("One", {{"a", value}, {"$$b", second}, {"a", second}});
  const Uid like = archive_.object("One", {{"a", second}, {"$$b", value}, {"a", value}});
  const Uid bare = archive_.add(archive_.fields({{"a", value}}));
  Rooms& rooms = this->rooms();
  for (const Uid uid : {one, like}) {
    const ArchiveFields fields = rooms.fields.open(rooms.objects.item(uid));
    EXPECT_EQ(rooms.fields.find(fields, "a"), uid == one ? value : second);
    EXPECT_EQ(rooms.fields.find(fields, "$b"), uid == one ? second : value);
    EXPECT_FALSE(rooms.fields.find(fields, "absent"));
    EXPECT_TRUE(rooms.fields.find(fields, "a", Kind::integer));
    EXPECT_FALSE(rooms.fields.find(fields, "a", Kind::ascii));
    EXPECT_EQ(rooms.fields.classOf(fields).name, "One");
  }
  const ArchiveFields fields = rooms.fields.open(rooms.objects.item(bare));
  EXPECT_THROW((void)rooms.fields.classOf(fields), OVInvalidArchive);
}

TEST_F(ArchiveReaderRooms, FoundationFormsAreTakenForWhatTheyAre) {
  const Uid text = archive_.object("NSMutableString", {{"NS.string", archive_.ascii("text")}});
  const Uid list = archive_.arrayOf("NSArray", {text});
  const Uid odd = archive_.dictionaryOf("NSDictionary", {list}, {text});
  Rooms& rooms = this->rooms();
  const auto made = [&](Uid uid) {
    const ArchiveFields fields = rooms.fields.open(rooms.objects.item(uid));
    auto object = rooms.forms.make(rooms.fields.classOf(fields), fields);
    return object;
  };
  EXPECT_EQ(ov::cast<OVString>(made(text)), "text");
  EXPECT_TRUE(ov::cast<OVList<OVObject>>(made(list)).empty());
  EXPECT_NE(made(list), nullptr);
  EXPECT_EQ(made(odd), nullptr);
}

TEST_F(ArchiveReaderRooms, WhatAnUnknownObjectHoldsIsReadInItsOrder) {
  const Uid text = archive_.addText("text");
  const auto seven = archive_.integer(7);
  const auto inner = archive_.fields({{"b", seven}, {"$class", seven}});
  const Uid odd = archive_.object("Odd", {{"z", archive_.to(text)},
                                          {"a", archive_.array({seven, inner})},
                                          {"s", archive_.set({seven})},
                                          {"a", archive_.null()}});
  Rooms& rooms = this->rooms();
  ArchiveReader reader(rooms.data->bytes(), nullptr);
  ASSERT_EQ(reader.root(), nullptr);
  const auto fields =
      OpaqueReader(rooms.plist, rooms.leaves, reader).fields(rooms.objects.item(odd));
  ASSERT_EQ(fields.size(), 4U);
  EXPECT_EQ(fields[0].key, "z");
  EXPECT_EQ(ov::cast<OVString>(get<OVOpaqueValue::Reference>(fields[0].value.content).object),
            "text");
  const auto& array = get<OVOpaqueValue::Array>(fields[1].value.content);
  const auto& dictionary = get<OVOpaqueValue::Dictionary>(array.at(1).content);
  EXPECT_EQ(dictionary.at(1).key, "$class");
  const auto& set = get<OVOpaqueValue::Set>(fields[2].value.content);
  const auto& number = get<OVOpaqueValue::Inline>(set.elements.at(0).content).object;
  EXPECT_EQ(ov::cast<OVNumber>(number)->integerValue(), 7);
  EXPECT_EQ(fields[3].key, "a");
  EXPECT_EQ(get<OVOpaqueValue::Inline>(fields[3].value.content).object, nullptr);
}

}  // namespace
