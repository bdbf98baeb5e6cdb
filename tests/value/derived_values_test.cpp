#include <gtest/gtest.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"
#include "value/multiple_values.h"

namespace {

/// A host's single value with a field of its own.
class RatedValue : public OVMutableSingleValue {
 public:
  explicit RatedValue(int rating) : stars(rating) {}

  const int stars;

 protected:
  OVRef<OVMutableSingleValue> newCopy() const override {
    return std::make_shared<RatedValue>(stars);
  }
};

OVRef<RatedValue> rated(int stars) {
  auto value = std::make_shared<RatedValue>(stars);
  value->setType(OVValueTypePhone);
  value->setLabel(labelOf("home"));
  value->setValue("555");
  return value;
}

int starsOf(const OVRef<OVValue>& value) {
  const auto found = ov::cast<RatedValue>(value);
  return found == nullptr ? 0 : found->stars;
}

TEST(DerivedSingleValue, KeepsItsClassInEveryCopy) {
  const auto value = rated(4);
  const OVRef<OVSingleValue> seenAsSingle = value;
  const OVRef<OVValue> seenAsValue = value;
  for (const OVRef<OVValue>& copy :
       {OVRef<OVValue>(value->copy()), OVRef<OVValue>(value->mutableCopy()),
        OVRef<OVValue>(seenAsSingle->copy()), seenAsValue->copy(), seenAsValue->mutableCopy()}) {
    EXPECT_NE(copy, value);
    EXPECT_EQ(starsOf(copy), 4);
    EXPECT_EQ(copy->type(), OVValueTypePhone);
    EXPECT_EQ(ov::cast<OVSingleValue>(copy)->label(), value->label());
    EXPECT_EQ(ov::cast<OVString>(ov::cast<OVSingleValue>(copy)->value()), "555");
  }
}

TEST(DerivedSingleValue, KeepsItsClassInTheCopyOfAMultipleValue) {
  const auto multiple = multipleOf({rated(1), textValue("5", OVValueTypePhone), rated(3)});
  multiple->setMainValue(multiple->valueAtIndex(2));
  for (const auto& copy : {multiple->copy(), multiple->mutableCopy(),
                           OVMutableMultipleValue::mutableMultipleValueWithOther(multiple)}) {
    ASSERT_EQ(copy->count(), 3U);
    EXPECT_EQ(starsOf(copy->valueAtIndex(0)), 1);
    EXPECT_EQ(starsOf(copy->valueAtIndex(1)), 0);
    EXPECT_EQ(starsOf(copy->mainValue()), 3);
  }
}

/// Makes no copies of its own class.
class Undecided : public OVMutableSingleValue {
 protected:
  OVRef<OVMutableSingleValue> newCopy() const override { return nullptr; }
};

TEST(DerivedSingleValue, WithoutACopyOfItsOwnIsCopiedAsAMutableValue) {
  const auto value = std::make_shared<Undecided>();
  value->setValue("x");
  const auto copy = value->copy();
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(ov::cast<OVString>(copy->value()), "x");
}

/// A host's read-only multiple value: the numbers of a range.
class Extensions : public OVMultipleValue {
 public:
  OVValueType subType() const override { return OVValueTypePhone; }
  std::uint64_t count() const override { return numbers_.size(); }
  OVRef<OVSingleValue> mainValue() const override { return numbers_[1]; }
  OVRef<OVSingleValue> valueAtIndex(std::uint64_t index) const override {
    return index < count() ? numbers_[index] : nullptr;
  }
  std::uint64_t indexOfValue(const OVRef<OVSingleValue>& value) const override {
    for (std::uint64_t i = 0; i < count(); ++i)
      if (numbers_[i] == value) return i;
    return OVNotFound;
  }

 private:
  const Elements numbers_ = {textValue("100", OVValueTypePhone), rated(5),
                             textValue("102", OVValueTypePhone),
                             textValue("a@b", OVValueTypeEmail)};
};

TEST(DerivedMultipleValue, IsCopiedThroughWhatItAnswers) {
  const auto source = std::make_shared<Extensions>();
  EXPECT_EQ(source->type(), OVValueTypeMultiple);
  const auto copy = source->copy();
  ASSERT_EQ(copy->count(), 3U);
  for (std::uint64_t i = 0; i < 3; ++i) {
    EXPECT_NE(copy->valueAtIndex(i), source->valueAtIndex(i));
    EXPECT_TRUE(ov::cast<OVString>(copy->valueAtIndex(i)->value())
                    .isSame(ov::cast<OVString>(source->valueAtIndex(i)->value())));
  }
  EXPECT_EQ(copy->mainValue(), copy->valueAtIndex(1));
  EXPECT_EQ(starsOf(copy->mainValue()), 5);
  EXPECT_EQ(OVMutableMultipleValue::mutableMultipleValueWithOther(source)->count(), 3U);
}

/// A host's mutable multiple value with a field of its own.
class NamedValues : public OVMutableMultipleValue {
 public:
  OVString name;

 protected:
  OVRef<OVMutableMultipleValue> newCopy() const override {
    auto made = std::make_shared<NamedValues>();
    made->name = name;
    return made;
  }
};

TEST(DerivedMultipleValue, KeepsItsClassInEveryCopy) {
  const auto source = std::make_shared<NamedValues>();
  source->name = "numbers";
  source->addValue(textValue("1"));
  const OVRef<OVValue> seenAsValue = source;
  for (const OVRef<OVValue>& copy : {OVRef<OVValue>(source->copy()), seenAsValue->mutableCopy()}) {
    const auto found = ov::cast<NamedValues>(copy);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->name, "numbers");
    EXPECT_EQ(found->count(), 1U);
  }
}

class OwnLabel : public OVLabel {};
class OwnReadOnlyValue : public OVSingleValue {};

TEST(DerivedValues, AreMadeLikeAnyObject) {
  EXPECT_EQ(std::make_shared<OwnLabel>()->name(), nullptr);
  EXPECT_EQ(std::make_shared<OwnReadOnlyValue>()->value(), nullptr);
  const auto values = std::make_shared<NamedValues>();
  values->addValue(rated(1));
  EXPECT_EQ(values->count(), 1U);
}

}  // namespace
