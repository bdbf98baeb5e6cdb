#include <gtest/gtest.h>

#include "support/values.h"
#include "value/multiple_values.h"

namespace {

class MultipleValueOfThree : public testing::Test {
 protected:
  const OVRef<OVMutableSingleValue> a = textValue("a", OVValueTypePhone);
  const OVRef<OVMutableSingleValue> b = textValue("b", OVValueTypePhone);
  const OVRef<OVMutableSingleValue> c = textValue("c", OVValueTypePhone);
  const OVRef<OVMutableSingleValue> other = textValue("other", OVValueTypePhone);
  const OVRef<OVMutableSingleValue> empty = valueOf(OVValueTypePhone, nullptr);
  const OVRef<OVMutableMultipleValue> abc = multipleOf({a, b, c});

  void expectUnchanged() const {
    EXPECT_EQ(elementsOf(abc), (Elements{a, b, c}));
    EXPECT_EQ(abc->mainValue(), a);
  }
};

using MultipleValueReplace = MultipleValueOfThree;
using MultipleValueRemove = MultipleValueOfThree;

TEST_F(MultipleValueReplace, PutsTheValueInThePlaceOfTheOldOne) {
  abc->replaceValueForIndex(other, 1);
  EXPECT_EQ(elementsOf(abc), (Elements{a, other, c}));
  EXPECT_EQ(abc->mainValue(), a);
}

TEST_F(MultipleValueReplace, ReplacementOfTheMainValueIsMain) {
  abc->replaceValueForIndex(other, 0);
  EXPECT_EQ(elementsOf(abc), (Elements{other, b, c}));
  EXPECT_EQ(abc->mainValue(), other);
  abc->setMainValue(c);
  abc->replaceValueForIndex(a, 2);
  EXPECT_EQ(abc->mainValue(), a);
}

TEST_F(MultipleValueReplace, AnyTypeIsTaken) {
  const auto email = textValue("a@b", OVValueTypeEmail);
  abc->replaceValueForIndex(email, 2);
  EXPECT_EQ(elementsOf(abc), (Elements{a, b, email}));
  EXPECT_EQ(abc->subType(), OVValueTypePhone);
  abc->replaceValueForIndex(email, 0);
  EXPECT_EQ(abc->subType(), OVValueTypeEmail);
}

TEST_F(MultipleValueReplace, NullIsRefused) {
  abc->replaceValueForIndex(nullptr, 0);
  expectUnchanged();
}

TEST_F(MultipleValueReplace, ValueWithoutDatumIsRefused) {
  abc->replaceValueForIndex(empty, 0);
  expectUnchanged();
}

TEST_F(MultipleValueReplace, PositionPastTheEndIsRefused) {
  abc->replaceValueForIndex(other, 3);
  abc->replaceValueForIndex(other, OVNotFound);
  abc->replaceValueForIndex(other, UINT64_MAX);
  expectUnchanged();
}

TEST_F(MultipleValueReplace, MainValueOutsideTheListStays) {
  const auto outside = textValue("outside", OVValueTypePhone);
  abc->setMainValue(outside);
  abc->replaceValueForIndex(other, 0);
  EXPECT_EQ(abc->mainValue(), outside);
}

TEST_F(MultipleValueReplace, WithoutMainValueThereIsNoneAfterwards) {
  abc->setMainValue(nullptr);
  abc->replaceValueForIndex(other, 0);
  EXPECT_EQ(abc->mainValue(), nullptr);
  EXPECT_EQ(abc->valueAtIndex(0), other);
}

TEST_F(MultipleValueReplace, MayReplaceAValueByItself) {
  abc->replaceValueForIndex(a, 0);
  expectUnchanged();
}

TEST_F(MultipleValueReplace, ByOriginalTakesItsFirstPosition) {
  abc->addValue(b);
  abc->replaceValueForOriginal(other, b);
  EXPECT_EQ(elementsOf(abc), (Elements{a, other, c, b}));
}

TEST_F(MultipleValueReplace, ByOriginalMovesTheMainValueAndTakesAnyType) {
  const auto email = textValue("a@b", OVValueTypeEmail);
  abc->replaceValueForOriginal(email, a);
  EXPECT_EQ(elementsOf(abc), (Elements{email, b, c}));
  EXPECT_EQ(abc->mainValue(), email);
}

TEST_F(MultipleValueReplace, ByOriginalRefusesNullAbsentAndEmptyValues) {
  abc->replaceValueForOriginal(other, nullptr);
  abc->replaceValueForOriginal(nullptr, a);
  abc->replaceValueForOriginal(nullptr, nullptr);
  abc->replaceValueForOriginal(empty, a);
  abc->replaceValueForOriginal(other, textValue("a", OVValueTypePhone));
  expectUnchanged();
}

TEST_F(MultipleValueRemove, TakesTheValueOut) {
  abc->removeValue(b);
  EXPECT_EQ(elementsOf(abc), (Elements{a, c}));
  EXPECT_EQ(abc->mainValue(), a);
}

TEST_F(MultipleValueRemove, AfterTheMainValueTheFirstElementIsMain) {
  abc->removeValue(a);
  EXPECT_EQ(abc->mainValue(), b);
  abc->setMainValue(c);
  abc->removeValue(c);
  EXPECT_EQ(abc->mainValue(), b);
}

TEST_F(MultipleValueRemove, AfterTheLastElementThereIsNoMainValue) {
  for (const auto& value : {a, b, c}) abc->removeValue(value);
  EXPECT_EQ(abc->count(), 0U);
  EXPECT_EQ(abc->mainValue(), nullptr);
  EXPECT_EQ(abc->subType(), 0);
}

TEST_F(MultipleValueRemove, EmptiedByRemovalItTakesAnyTypeAgain) {
  const auto multiple = multipleOf({a});
  multiple->removeValueAtIndex(0);
  const auto email = textValue("a@b", OVValueTypeEmail);
  multiple->addValue(email);
  EXPECT_EQ(multiple->mainValue(), email);
}

TEST_F(MultipleValueRemove, TakesOutEveryOccurrence) {
  EXPECT_EQ(multipleOf({a, b, a})->count(), 3U);
  const auto byValue = multipleOf({a, b, a});
  byValue->removeValue(a);
  EXPECT_EQ(elementsOf(byValue), Elements{b});
  EXPECT_EQ(byValue->mainValue(), b);
  const auto byIndex = multipleOf({b, a, c, a});
  byIndex->removeValueAtIndex(3);
  EXPECT_EQ(elementsOf(byIndex), (Elements{b, c}));
  EXPECT_EQ(byIndex->mainValue(), b);
}

TEST_F(MultipleValueRemove, NullAndAbsentValuesChangeNothing) {
  abc->removeValue(nullptr);
  abc->removeValue(other);
  abc->removeValue(textValue("a", OVValueTypePhone));
  expectUnchanged();
}

TEST_F(MultipleValueRemove, PositionPastTheEndChangesNothing) {
  abc->removeValueAtIndex(3);
  abc->removeValueAtIndex(UINT64_MAX);
  expectUnchanged();
}

TEST_F(MultipleValueRemove, ByPositionFollowsTheMainValue) {
  abc->removeValueAtIndex(0);
  EXPECT_EQ(elementsOf(abc), (Elements{b, c}));
  EXPECT_EQ(abc->mainValue(), b);
}

TEST_F(MultipleValueRemove, MainValueOutsideTheListStays) {
  abc->setMainValue(other);
  abc->removeValue(other);
  EXPECT_EQ(abc->mainValue(), other);
  abc->removeValue(a);
  EXPECT_EQ(abc->mainValue(), other);
}

TEST_F(MultipleValueRemove, WithoutMainValueThereIsNoneAfterwards) {
  abc->setMainValue(nullptr);
  abc->removeValue(a);
  EXPECT_EQ(abc->mainValue(), nullptr);
}

class MainValueTwice : public MultipleValueOfThree {
 protected:
  const OVRef<OVMutableMultipleValue> abab = multipleOf({a, b, a, b});
};

TEST_F(MainValueTwice, ReplacedAtEitherPlaceTheReplacementIsMain) {
  abab->replaceValueForIndex(other, 2);
  EXPECT_EQ(elementsOf(abab), (Elements{a, b, other, b}));
  EXPECT_EQ(abab->mainValue(), other);
  abab->setMainValue(b);
  abab->replaceValueForIndex(c, 1);
  EXPECT_EQ(elementsOf(abab), (Elements{a, c, other, b}));
  EXPECT_EQ(abab->mainValue(), c);
}

TEST_F(MainValueTwice, ReplacedByOriginalItsFirstPlaceIsTaken) {
  abab->replaceValueForOriginal(other, a);
  EXPECT_EQ(elementsOf(abab), (Elements{other, b, a, b}));
  EXPECT_EQ(abab->mainValue(), other);
}

TEST_F(MainValueTwice, RemovedFromOnePlaceItIsGoneFromBoth) {
  abab->removeValueAtIndex(2);
  EXPECT_EQ(elementsOf(abab), (Elements{b, b}));
  EXPECT_EQ(abab->mainValue(), b);
  abab->removeValue(b);
  EXPECT_EQ(abab->count(), 0U);
  EXPECT_EQ(abab->mainValue(), nullptr);
}

TEST_F(MainValueTwice, InACopyTheFirstOfTheTwoCopiesIsMain) {
  const auto copy = abab->copy();
  ASSERT_EQ(copy->count(), 4U);
  EXPECT_EQ(copy->mainValue(), copy->valueAtIndex(0));
  EXPECT_NE(copy->mainValue(), copy->valueAtIndex(2));
  EXPECT_EQ(copy->indexOfValue(copy->valueAtIndex(2)), 2U);
}

}  // namespace
