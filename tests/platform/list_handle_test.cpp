#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/list.h>

#include "support/printers.h"

namespace {

using Any = OVList<OVObject>;
using Texts = OVList<OVString>;
using Dates = OVList<OVDate>;

TEST(ListHandle, SharesItsElementsWithTheList) {
  const auto any = Any::list({OVString("a")});
  const auto texts = ov::cast<Texts>(any);
  ASSERT_NE(texts, nullptr);
  texts.push_back("b");
  any.push_back(OVString("c"));
  EXPECT_EQ(any.size(), 3U);
  EXPECT_EQ(texts.back(), "c");
  any.erase(0);
  EXPECT_EQ(texts.front(), "b");
  texts.clear();
  EXPECT_TRUE(any.empty());
}

TEST(ListHandle, OfTheSameKindIsTheListItself) {
  const auto texts = Texts::list();
  EXPECT_EQ(ov::cast<Texts>(texts), texts);
}

TEST(ListHandle, OutlivesTheList) {
  auto any = Any::list({OVString("kept")});
  const auto texts = ov::cast<Texts>(any);
  any = nullptr;
  EXPECT_EQ(texts.front(), "kept");
}

TEST(ListHandle, ReadsElementsOfAnotherClassAsNullAndKeepsThem) {
  const auto date = OVDate::dateWithTimeIntervalSinceReferenceDate(1);
  const auto any = Any::list({OVString("text"), date});
  const auto texts = ov::cast<Texts>(any);
  EXPECT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0], "text");
  EXPECT_TRUE(texts[1].isNull());
  EXPECT_TRUE(ov::cast<Dates>(texts)[0] == nullptr);
  EXPECT_EQ(any[1], date);
}

// Null cannot be in a list, so that asking for it must not hit what merely reads as null.
TEST(ListHandle, ElementsOfAnotherClassAreNotFoundOrRemovedAsNull) {
  const auto any = Any::list({OVDate::dateWithTimeIntervalSinceReferenceDate(1)});
  const auto texts = ov::cast<Texts>(any);
  EXPECT_FALSE(texts.contains(nullptr));
  EXPECT_EQ(texts.find(nullptr), texts.end());
  EXPECT_EQ(texts.remove(nullptr), 0U);
  EXPECT_EQ(any.size(), 1U);
}

TEST(ListHandle, KeepsWhetherTheListIsImmutable) {
  const OVRef<OVObject> immutable = Any::immutableList();
  EXPECT_TRUE(ov::cast<Texts>(immutable).isImmutable());
}

TEST(ListHandle, ACopyKeepsElementsOfAnotherClass) {
  const auto any = Any::list({OVDate::dateWithTimeIntervalSinceReferenceDate(1)});
  const auto copy = ov::cast<Texts>(any).copy();
  EXPECT_EQ(ov::cast<Any>(copy).front(), any.front());
}

}  // namespace
