#include <gtest/gtest.h>

#include "support/archive/archived_fields.h"
#include "support/values.h"
#include "value/multiple_values.h"

namespace {

/// What was archived empty comes back without any list.
class MultipleValueWithoutList : public testing::Test {
 protected:
  const OVRef<OVMutableMultipleValue> multiple =
      restored<OVMutableMultipleValue>(OVMutableMultipleValue::init());
  const OVRef<OVMutableSingleValue> phone = textValue("555", OVValueTypePhone);
};

TEST_F(MultipleValueWithoutList, IsEmpty) {
  EXPECT_EQ(multiple->type(), 12);
  EXPECT_EQ(multiple->count(), 0U);
  EXPECT_EQ(multiple->subType(), 0);
  EXPECT_EQ(multiple->mainValue(), nullptr);
  EXPECT_EQ(multiple->valueAtIndex(0), nullptr);
  EXPECT_TRUE(multiple->allLabelName().empty());
}

TEST_F(MultipleValueWithoutList, FindsEveryValueAtPositionZero) {
  EXPECT_EQ(multiple->indexOfValue(phone), 0U);
  EXPECT_EQ(multiple->indexOfValue(nullptr), OVNotFound);
}

TEST_F(MultipleValueWithoutList, AddedValueBecomesMainAndIsNotInTheList) {
  multiple->addValue(phone);
  EXPECT_EQ(multiple->mainValue(), phone);
  EXPECT_EQ(multiple->subType(), OVValueTypePhone);
  EXPECT_EQ(multiple->count(), 0U);
  EXPECT_EQ(multiple->valueAtIndex(0), nullptr);
}

TEST_F(MultipleValueWithoutList, OnlyTheFirstAddedValueBecomesMain) {
  multiple->addValue(nullptr);
  multiple->addValue(valueOf(OVValueTypePhone, nullptr));
  EXPECT_EQ(multiple->mainValue(), nullptr);
  multiple->addValue(phone);
  multiple->addValue(textValue("556", OVValueTypePhone));
  multiple->addValue(textValue("a@b", OVValueTypeEmail));
  EXPECT_EQ(multiple->mainValue(), phone);
  EXPECT_EQ(multiple->count(), 0U);
}

TEST_F(MultipleValueWithoutList, RemovalAndReplacementDoNothing) {
  multiple->setMainValue(phone);
  const auto other = textValue("556", OVValueTypePhone);
  multiple->replaceValueForIndex(other, 0);
  multiple->replaceValueForOriginal(other, phone);
  multiple->removeValue(phone);
  multiple->removeValueAtIndex(0);
  EXPECT_EQ(multiple->mainValue(), phone);
  EXPECT_EQ(multiple->count(), 0U);
}

TEST_F(MultipleValueWithoutList, WritesNoKeysAgain) {
  multiple->addValue(phone);
  EXPECT_TRUE(ArchivedForm(multiple).keys().empty());
  EXPECT_EQ(restored<OVMutableMultipleValue>(multiple)->mainValue(), nullptr);
}

TEST_F(MultipleValueWithoutList, CopyHasAListAndNoMainValue) {
  multiple->addValue(phone);
  const auto copy = multiple->copy();
  EXPECT_EQ(copy->mainValue(), nullptr);
  EXPECT_EQ(copy->indexOfValue(phone), OVNotFound);
  copy->addValue(phone);
  EXPECT_EQ(copy->count(), 1U);
}

}  // namespace
