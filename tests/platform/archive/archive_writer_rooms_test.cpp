// The rooms of the writer of archives, each by itself.

#include <gtest/gtest.h>

#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/number.h>

#include "platform/archive/met_objects.h"
#include "platform/archive/plist_reader.h"
#include "platform/archive/plist_writer.h"
#include "platform/archive/written_classes.h"
#include "platform/archive/written_fields.h"
#include "platform/archive/written_objects.h"
#include "platform/archive/written_values.h"

using ov::detail::KeySequence;
using ov::detail::MetObjects;
using ov::detail::PlistReader;
using ov::detail::PlistWriter;
using ov::detail::WrittenClasses;
using ov::detail::WrittenFields;
using ov::detail::WrittenObjects;
using ov::detail::WrittenValues;

namespace {

class ArchiveWriterRooms : public testing::Test {
 protected:
  PlistWriter plist_;
  WrittenObjects objects_{plist_};
  WrittenValues values_{plist_};
  WrittenClasses classes_{plist_, values_, objects_};
  WrittenFields fields_{values_};
};

TEST_F(ArchiveWriterRooms, EqualValuesAreWrittenOnce) {
  EXPECT_EQ(values_.key("key"), values_.key(std::string("key")));
  EXPECT_EQ(values_.integer(7), values_.integer(7));
  EXPECT_EQ(values_.integer(-7), values_.integer(-7));
  EXPECT_EQ(values_.real(0.5), values_.real(0.5));
  EXPECT_EQ(values_.boolean(true), values_.boolean(true));
  EXPECT_EQ(values_.leaf(nullptr), values_.leaf(nullptr));
  EXPECT_EQ(values_.leaf(OVNumber::numberWithInteger(7)), values_.integer(7));
  EXPECT_NE(values_.integer(1), values_.boolean(true));
}

TEST_F(ArchiveWriterRooms, ObjectsGetTheirUidsInTurn) {
  EXPECT_EQ(objects_.nextUid(), 1U);
  const auto first = objects_.add();
  EXPECT_EQ(objects_.nextUid(), 2U);
  EXPECT_NE(objects_.add(), first);
  EXPECT_NE(objects_.null(), first);
}

TEST_F(ArchiveWriterRooms, AnObjectTakesThePlaceThatWasLeftForIt) {
  const auto uid = objects_.nextUid();
  (void)objects_.add();
  objects_.place(uid, plist_.text("late"));
  const auto written = plist_.finish(objects_.array());
  PlistReader plist(written->bytes());
  const auto array = plist.item(plist.top());
  EXPECT_EQ(array.count, 2U);
  std::string storage;
  EXPECT_TRUE(plist.equals(plist.item(plist.reference(array, 0)), "$null", storage));
  EXPECT_TRUE(plist.equals(plist.item(plist.reference(array, uid)), "late", storage));
}

TEST_F(ArchiveWriterRooms, AnEqualLeafIsTheEarlierObject) {
  const auto first = objects_.addLeaf(plist_.text("equal"));
  EXPECT_EQ(objects_.addLeaf(plist_.text("equal")), first);
  EXPECT_EQ(objects_.nextUid(), 2U);
}

TEST_F(ArchiveWriterRooms, AClassHasOneRecord) {
  WrittenClasses::Entry& label = classes_.of(OVLabel::archivedClass());
  EXPECT_TRUE(label.isTrusted);
  EXPECT_EQ(&classes_.of(OVLabel::archivedClass()), &label);
  EXPECT_EQ(classes_.record(label), classes_.record(label));
  static constexpr OVClass twin{"OVLabel", nullptr, nullptr};
  EXPECT_FALSE(classes_.of(twin).isTrusted);
  EXPECT_EQ(classes_.record(classes_.of(twin)), classes_.record(label));
  static constexpr OVClass other{"Other", nullptr, nullptr};
  EXPECT_NE(classes_.record(classes_.of(other)), classes_.record(label));
}

TEST_F(ArchiveWriterRooms, OfTwoFieldsWithOneKeyTheFirstCounts) {
  fields_.begin(nullptr);
  fields_.add("key", 1);
  fields_.add("key", 2);
  fields_.add("$key", 3);
  ASSERT_EQ(fields_.entries().size(), 2U);
  EXPECT_EQ(fields_.entries()[0].value, 1U);
  EXPECT_EQ(fields_.entries()[1].key, values_.key("$$key"));
}

TEST_F(ArchiveWriterRooms, ConstantKeysAreGuessedFromTheObjectBefore) {
  KeySequence keys;
  for (int object = 0; object < 3; ++object) {
    fields_.begin(&keys);
    fields_.add("first", 1);
    if (object != 1) fields_.add("second", 2);
    fields_.add("third", 3);
    ASSERT_EQ(fields_.entries().size(), object == 1 ? 2U : 3U);
    EXPECT_EQ(fields_.entries().front().key, values_.key("first"));
    EXPECT_EQ(fields_.entries().back().key, values_.key("third"));
  }
}

TEST(MetObjects, AreKnownByTheirAddressesAndKept) {
  MetObjects met;
  OVRef<OVObject> object = OVLabel::init();
  const auto first = met.at(*object, object);
  EXPECT_TRUE(first.isNew);
  first.entry.number = 5;
  EXPECT_FALSE(met.at(*object, object).isNew);
  EXPECT_EQ(met.at(*object, object).entry.number, 5U);
  const std::weak_ptr<OVObject> watched = object;
  object = nullptr;
  EXPECT_FALSE(watched.expired());
  const auto other = OVLabel::init();
  EXPECT_TRUE(met.at(*other, OVRef<OVObject>(other)).isNew);
}

}  // namespace
