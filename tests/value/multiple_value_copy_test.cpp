#include <gtest/gtest.h>

#include "support/values.h"
#include "value/multiple_values.h"

namespace {

class MultipleValueCopy : public testing::Test {
 protected:
  const OVRef<OVMutableSingleValue> a = valueOf(OVValueTypePhone, labelOf("a"), labelOf("home"));
  const OVRef<OVMutableSingleValue> b = valueOf(OVValueTypePhone, labelOf("b"), labelOf("work"));
  const OVRef<OVMutableSingleValue> c = valueOf(OVValueTypePhone, labelOf("c"), labelOf("other"));
  const OVRef<OVMutableMultipleValue> abc = multipleOf({a, b, c});
};

TEST_F(MultipleValueCopy, HoldsCopiesThatShareLabelsAndData) {
  const auto copy = abc->copy();
  ASSERT_EQ(copy->count(), 3U);
  EXPECT_NE(copy, abc);
  for (std::uint64_t i = 0; i < 3; ++i) {
    const auto original = abc->valueAtIndex(i);
    const auto element = copy->valueAtIndex(i);
    EXPECT_NE(element, original);
    EXPECT_NE(ov::cast<OVMutableSingleValue>(element), nullptr);
    EXPECT_EQ(element->type(), original->type());
    EXPECT_EQ(element->label(), original->label());
    EXPECT_EQ(element->value(), original->value());
  }
}

TEST_F(MultipleValueCopy, MutableCopyIsTheSame) {
  const auto copy = abc->mutableCopy();
  ASSERT_EQ(copy->count(), 3U);
  EXPECT_EQ(copy->valueAtIndex(1)->value(), b->value());
}

TEST_F(MultipleValueCopy, ChangesOfTheCopyLeaveTheSourceUnchanged) {
  const auto copy = abc->copy();
  copy->removeValueAtIndex(0);
  EXPECT_EQ(elementsOf(abc), (Elements{a, b, c}));
  EXPECT_EQ(abc->mainValue(), a);
}

TEST_F(MultipleValueCopy, MainValueKeepsItsPosition) {
  abc->setMainValue(c);
  const auto copy = abc->copy();
  EXPECT_EQ(copy->mainValue(), copy->valueAtIndex(2));
}

TEST_F(MultipleValueCopy, WithoutMainValueTheCopyHasNone) {
  abc->setMainValue(nullptr);
  const auto copy = abc->copy();
  EXPECT_EQ(copy->count(), 3U);
  EXPECT_EQ(copy->mainValue(), nullptr);
}

TEST_F(MultipleValueCopy, MainValueOutsideTheListLeavesTheCopyWithout) {
  abc->setMainValue(valueOf(OVValueTypePhone, labelOf("outside")));
  const auto copy = abc->copy();
  EXPECT_EQ(copy->count(), 3U);
  EXPECT_EQ(copy->mainValue(), nullptr);
}

TEST_F(MultipleValueCopy, LeavesOutElementsWhoseDatumWasTakenAway) {
  b->setValue(nullptr);
  const auto copy = abc->copy();
  ASSERT_EQ(copy->count(), 2U);
  EXPECT_EQ(copy->valueAtIndex(0)->value(), a->value());
  EXPECT_EQ(copy->valueAtIndex(1)->value(), c->value());
}

TEST_F(MultipleValueCopy, LeavesOutElementsOfAnotherTypeThanTheFirstAccepted) {
  a->setValue(nullptr);
  c->setType(OVValueTypeEmail);
  const auto copy = abc->copy();
  ASSERT_EQ(copy->count(), 1U);
  EXPECT_EQ(copy->valueAtIndex(0)->value(), b->value());
}

TEST_F(MultipleValueCopy, MainValueIsWhateverIsAtItsFormerPosition) {
  abc->setMainValue(b);
  a->setValue(nullptr);
  const auto copy = abc->copy();
  ASSERT_EQ(copy->count(), 2U);
  EXPECT_EQ(copy->mainValue(), copy->valueAtIndex(1));
  EXPECT_EQ(copy->mainValue()->value(), c->value());
}

TEST_F(MultipleValueCopy, MainValueIsNullWhenItsFormerPositionIsPastTheEnd) {
  abc->setMainValue(c);
  a->setValue(nullptr);
  const auto copy = abc->copy();
  EXPECT_EQ(copy->count(), 2U);
  EXPECT_EQ(copy->mainValue(), nullptr);
}

TEST_F(MultipleValueCopy, SameObjectTwiceBecomesTwoObjects) {
  const auto copy = multipleOf({a, a})->copy();
  ASSERT_EQ(copy->count(), 2U);
  EXPECT_NE(copy->valueAtIndex(0), copy->valueAtIndex(1));
}

TEST_F(MultipleValueCopy, OfAnEmptyOneIsEmptyAndTakesValues) {
  const auto copy = OVMutableMultipleValue::init()->copy();
  copy->addValue(a);
  EXPECT_EQ(elementsOf(copy), Elements{a});
}

TEST_F(MultipleValueCopy, FromAnotherIsItsMutableCopy) {
  const auto copy = OVMutableMultipleValue::mutableMultipleValueWithOther(abc);
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, abc);
  EXPECT_EQ(copy->count(), 3U);
  EXPECT_EQ(OVMutableMultipleValue::mutableMultipleValueWithOther(OVMultipleValue::init())->count(),
            0U);
}

TEST_F(MultipleValueCopy, FromNullIsNull) {
  EXPECT_EQ(OVMutableMultipleValue::mutableMultipleValueWithOther(nullptr), nullptr);
}

}  // namespace
