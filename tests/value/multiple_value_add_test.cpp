#include <gtest/gtest.h>

#include "support/values.h"
#include "value/multiple_values.h"

namespace {

TEST(MultipleValueAdd, FirstValueBecomesMainAndGivesTheType) {
  const auto multiple = OVMutableMultipleValue::init();
  const auto phone = textValue("555", OVValueTypePhone);
  multiple->addValue(phone);
  EXPECT_EQ(multiple->mainValue(), phone);
  EXPECT_EQ(multiple->subType(), 6);
  EXPECT_EQ(elementsOf(multiple), Elements{phone});
}

TEST(MultipleValueAdd, ValueOfAnotherTypeIsRefused) {
  const auto phone = textValue("555", OVValueTypePhone);
  const auto multiple = multipleOf({phone});
  multiple->addValue(textValue("a@b", OVValueTypeEmail));
  EXPECT_EQ(multiple->count(), 1U);
  EXPECT_EQ(multiple->mainValue(), phone);
}

TEST(MultipleValueAdd, ValueOfTheSameTypeIsAppended) {
  const auto first = textValue("1", OVValueTypePhone);
  const auto second = textValue("2", OVValueTypePhone);
  const auto multiple = multipleOf({first, second});
  EXPECT_EQ(elementsOf(multiple), (Elements{first, second}));
  EXPECT_EQ(multiple->mainValue(), first);
}

TEST(MultipleValueAdd, NullIsRefused) {
  const auto multiple = multipleOf({nullptr});
  EXPECT_EQ(multiple->count(), 0U);
  EXPECT_EQ(multiple->mainValue(), nullptr);
}

TEST(MultipleValueAdd, ValueWithoutDatumIsRefused) {
  const auto empty = valueOf(OVValueTypePhone, nullptr, labelOf("home"));
  EXPECT_EQ(multipleOf({empty})->count(), 0U);
  EXPECT_EQ(multipleOf({empty})->mainValue(), nullptr);
  const auto phone = textValue("555", OVValueTypePhone);
  EXPECT_EQ(elementsOf(multipleOf({phone, empty})), Elements{phone});
}

TEST(MultipleValueAdd, SameObjectMayBeThereTwice) {
  const auto value = textValue("1");
  EXPECT_EQ(elementsOf(multipleOf({value, value})), (Elements{value, value}));
}

TEST(MultipleValueAdd, TypeIsThatOfTheMainValueAtTheTime) {
  const auto first = textValue("1", OVValueTypePhone);
  const auto multiple = multipleOf({first});
  first->setType(OVValueTypeEmail);
  EXPECT_EQ(multiple->subType(), OVValueTypeEmail);
  multiple->addValue(textValue("2", OVValueTypePhone));
  EXPECT_EQ(multiple->count(), 1U);
  multiple->addValue(textValue("3", OVValueTypeEmail));
  EXPECT_EQ(multiple->count(), 2U);
}

TEST(MultipleValueAdd, WithoutMainValueAnyTypeIsTakenAndBecomesMain) {
  const auto first = textValue("1", OVValueTypePhone);
  const auto multiple = multipleOf({first});
  multiple->setMainValue(nullptr);
  EXPECT_EQ(multiple->subType(), 0);
  const auto second = textValue("2", OVValueTypeEmail);
  multiple->addValue(second);
  EXPECT_EQ(elementsOf(multiple), (Elements{first, second}));
  EXPECT_EQ(multiple->mainValue(), second);
}

TEST(MultipleValueSetMain, TakesAnElement) {
  const auto second = textValue("2");
  const auto multiple = multipleOf({textValue("1"), second});
  multiple->setMainValue(second);
  EXPECT_EQ(multiple->mainValue(), second);
}

TEST(MultipleValueSetMain, TakesAnObjectOutsideTheListWhoseTypeCountsFromThenOn) {
  const auto multiple = multipleOf({textValue("1", OVValueTypePhone)});
  const auto outside = textValue("a@b", OVValueTypeEmail);
  multiple->setMainValue(outside);
  EXPECT_EQ(multiple->mainValue(), outside);
  EXPECT_EQ(multiple->subType(), OVValueTypeEmail);
  EXPECT_EQ(multiple->count(), 1U);
  multiple->addValue(textValue("2", OVValueTypePhone));
  EXPECT_EQ(multiple->count(), 1U);
  multiple->addValue(textValue("c@d", OVValueTypeEmail));
  EXPECT_EQ(multiple->count(), 2U);
  EXPECT_EQ(multiple->mainValue(), outside);
}

TEST(MultipleValueSetMain, TakesAValueWithoutDatum) {
  const auto multiple = OVMutableMultipleValue::init();
  const auto empty = OVMutableSingleValue::init();
  multiple->setMainValue(empty);
  EXPECT_EQ(multiple->mainValue(), empty);
}

TEST(MultipleValueSetMain, NullClearsTheMainValue) {
  const auto value = textValue("1", OVValueTypePhone);
  const auto multiple = multipleOf({value});
  multiple->setMainValue(nullptr);
  EXPECT_EQ(multiple->mainValue(), nullptr);
  EXPECT_EQ(multiple->subType(), 0);
  EXPECT_EQ(elementsOf(multiple), Elements{value});
}

}  // namespace
