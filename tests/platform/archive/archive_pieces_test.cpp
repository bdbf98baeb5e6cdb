// What the reader and the writer of archives remember by.

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/archive_places.h"
#include "platform/archive/archive_slot.h"
#include "platform/archive/key_sequence.h"

using ov::detail::ArchivePlaces;
using ov::detail::ArchiveSlot;
using ov::detail::KeySequence;

namespace {

constexpr std::uint32_t kNone = KeySequence::kNone;
constexpr std::string_view kFirst = "first";
constexpr std::string_view kSecond = "second";
constexpr std::string_view kThird = "third";

class KeySequences : public testing::Test {
 protected:
  void SetUp() override {
    KeySequence::Walk walk(&sequence_);
    std::uint32_t number = 0;
    for (const std::string_view key : {kFirst, kSecond, kThird}) {
      EXPECT_EQ(walk.next(key), kNone);
      walk.add(key, ++number);
    }
  }

  KeySequence sequence_;
};

TEST_F(KeySequences, KnowTheKeysOfTheNextObject) {
  KeySequence::Walk walk(&sequence_);
  EXPECT_EQ(walk.next(kFirst), 1U);
  EXPECT_EQ(walk.next(kSecond), 2U);
  EXPECT_EQ(walk.next(kThird), 3U);
}

TEST_F(KeySequences, AllowKeysToBeLeftOutButNotToComeAgain) {
  KeySequence::Walk walk(&sequence_);
  EXPECT_EQ(walk.next(kThird), 3U);
  EXPECT_EQ(walk.next(kFirst), kNone);
}

TEST_F(KeySequences, TakeANewKeyWhereItIsMet) {
  constexpr std::string_view between = "between";
  KeySequence::Walk walk(&sequence_);
  EXPECT_EQ(walk.next(kFirst), 1U);
  EXPECT_EQ(walk.next(between), kNone);
  walk.add(between, 4);
  EXPECT_EQ(walk.next(kSecond), 2U);
  KeySequence::Walk again(&sequence_);
  EXPECT_EQ(again.next(between), 4U);
  EXPECT_EQ(again.next(kSecond), 2U);
}

TEST_F(KeySequences, KnowAKeyByItsAddressOnly) {
  const std::string equal(kFirst);
  EXPECT_EQ(KeySequence::Walk(&sequence_).next(equal), kNone);
}

TEST_F(KeySequences, AreNotLearntWithoutOne) {
  KeySequence::Walk walk;
  EXPECT_FALSE(walk.isLearning());
  walk.add(kFirst, 1);
  EXPECT_EQ(walk.next(kFirst), kNone);
}

TEST(ArchiveSlots, AreEmptyAtFirstAndAfterNull) {
  ArchiveSlot slot;
  slot.set(OVRef<OVObject>());
  EXPECT_TRUE(slot.isEmpty());
  EXPECT_EQ(slot.object(), nullptr);
  EXPECT_TRUE(slot.text().isNull());
}

TEST(ArchiveSlots, HoldAnObject) {
  ArchiveSlot slot;
  const OVRef<OVObject> number = OVNumber::numberWithInteger(7);
  slot.set(number);
  EXPECT_EQ(slot.object(), number);
  EXPECT_TRUE(slot.text().isNull());
}

TEST(ArchiveSlots, HoldATextWhichIsOneWithTheObjectThatItBecomes) {
  ArchiveSlot slot;
  const OVString text("text");
  slot.set(text);
  EXPECT_TRUE(slot.text().isSame(text));
  const OVRef<OVObject> object = slot.object();
  EXPECT_EQ(slot.object(), object);
  EXPECT_TRUE(slot.text().isSame(text));
  EXPECT_TRUE(ov::cast<OVString>(object).isSame(text));
}

TEST(ArchivePlacesOfAGraph, LeadFromTheRootToWhatIsRefused) {
  const OVRef<OVObject> refused = OVNumber::numberWithInteger(7);
  const auto list = std::make_shared<ov::detail::ListObject>();
  list->items = {OVNumber::numberWithInteger(1), refused};
  const OVRef<OVObject> root = OVNumber::numberWithInteger(2);
  ArchivePlaces places;
  places.meet(*root);
  places.name("root");
  places.enter(*root);
  places.meet(*list);
  places.name("items");
  places.enter(*list);
  places.meet(*list->items[0]);
  places.refuse(refused);
  EXPECT_THAT([&] { places.name("NS.objects"); },
              testing::ThrowsMessage<std::invalid_argument>(
                  "OVKeyedArchiver: the class OVNumber cannot be archived, at items[1]: override "
                  "classForCoder() in it"));
}

TEST(ArchivePlacesOfAGraph, AreWhereAnObjectWasMetFirst) {
  const OVRef<OVObject> root = OVNumber::numberWithInteger(1);
  const OVRef<OVObject> refused = OVNumber::numberWithInteger(2);
  ArchivePlaces places;
  places.enter(*root);
  places.meet(*refused);
  places.name("one");
  places.refuse(refused);
  EXPECT_THAT([&] { places.name("other"); },
              testing::Throws<std::invalid_argument>(testing::Property(
                  &std::invalid_argument::what, testing::HasSubstr(", at one:"))));
}

}  // namespace
