#include <OVAddressBookSDK/single_value.h>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/list.h>

#include "support/printers.h"
#include "support/values.h"

namespace {

TEST(SingleValue, ReadOnlyOneIsEmpty) {
  const auto value = OVSingleValue::init();
  EXPECT_EQ(value->type(), 0);
  EXPECT_EQ(value->label(), nullptr);
  EXPECT_EQ(value->value(), nullptr);
}

TEST(SingleValue, NewMutableOneIsEmpty) {
  const auto value = OVMutableSingleValue::init();
  EXPECT_EQ(value->type(), 0);
  EXPECT_EQ(value->label(), nullptr);
  EXPECT_EQ(value->value(), nullptr);
}

TEST(SingleValue, SettersKeepTheObjectsGiven) {
  const auto value = OVMutableSingleValue::init();
  const auto label = labelOf("home");
  const OVRef<OVObject> datum = OVList<OVString>::list();
  value->setType(OVValueTypeTags);
  value->setLabel(label);
  value->setValue(datum);
  const OVRef<OVSingleValue> view = value;
  EXPECT_EQ(view->type(), OVValueTypeTags);
  EXPECT_EQ(view->label(), label);
  EXPECT_EQ(view->value(), datum);
}

TEST(SingleValue, SettersReplaceAndTakeAway) {
  const auto value = valueOf(OVValueTypeNote, OVString("old"), labelOf("old"));
  const auto label = labelOf("new");
  value->setLabel(label);
  value->setValue(OVString("new"));
  value->setType(OVValueTypeString);
  EXPECT_EQ(value->label(), label);
  EXPECT_EQ(ov::cast<OVString>(value->value()), "new");
  EXPECT_EQ(value->type(), OVValueTypeString);
  value->setLabel(nullptr);
  value->setValue(nullptr);
  EXPECT_EQ(value->label(), nullptr);
  EXPECT_EQ(value->value(), nullptr);
}

TEST(SingleValue, LabelledOneHasANewLabelOfOneText) {
  const OVRef<OVObject> datum = OVList<OVString>::list();
  const OVString text("work");
  const auto value = ov::labelled(datum, text, OVValueTypePhone);
  EXPECT_EQ(value->value(), datum);
  EXPECT_EQ(value->type(), OVValueTypePhone);
  EXPECT_TRUE(value->label()->name().isSame(text));
  EXPECT_TRUE(value->label()->displayName().isSame(text));
  EXPECT_NE(value->label(), ov::labelled(datum, text, OVValueTypePhone)->label());
}

TEST(SingleValue, LabelledOneTakesATextAsItComes) {
  EXPECT_EQ(ov::cast<OVString>(ov::labelled("pilot", "job", OVValueTypeString)->value()), "pilot");
  const OVString text("pilot");
  const auto value = ov::labelled(text, nullptr, OVValueTypeString);
  EXPECT_TRUE(ov::cast<OVString>(value->value()).isSame(text));
  EXPECT_EQ(value->label(), nullptr);
}

TEST(SingleValue, LabelledNullIsNull) {
  EXPECT_EQ(ov::labelled(OVRef<OVObject>(), "work", OVValueTypePhone), nullptr);
  EXPECT_EQ(ov::labelled(OVRef<OVLabel>(), "work", OVValueTypePhone), nullptr);
  EXPECT_EQ(ov::labelled(OVString(), "work", OVValueTypeString), nullptr);
  EXPECT_EQ(ov::labelled(nullptr, "work", OVValueTypeString), nullptr);
}

TEST(SingleValue, NothingComparesTypeAndDatum) {
  const auto value = valueOf(OVValueTypeImage, OVString("no image"));
  EXPECT_EQ(value->type(), OVValueTypeImage);
  EXPECT_EQ(ov::cast<OVString>(value->value()), "no image");
}

TEST(SingleValue, TextDatumKeepsItsIdentity) {
  const OVString text = "555";
  EXPECT_TRUE(ov::cast<OVString>(textValue(text)->value()).isSame(text));
}

TEST(SingleValueCopy, IsANewMutableValueOfTheSameObjects) {
  const auto source = valueOf(OVValueTypePhone, OVString("555"), labelOf("home"));
  for (const OVRef<OVMutableSingleValue>& copy : {source->copy(), source->mutableCopy()}) {
    EXPECT_NE(copy, source);
    EXPECT_EQ(copy->type(), OVValueTypePhone);
    EXPECT_EQ(copy->label(), source->label());
    EXPECT_TRUE(ov::cast<OVString>(copy->value()).isSame(ov::cast<OVString>(source->value())));
  }
}

TEST(SingleValueCopy, SharesADatumThatIsNoText) {
  const OVRef<OVObject> datum = OVList<OVString>::list();
  EXPECT_EQ(valueOf(OVValueTypeTags, datum)->copy()->value(), datum);
}

TEST(SingleValueCopy, OfTheReadOnlyClassIsMutable) {
  const auto copy = OVSingleValue::init()->copy();
  copy->setType(OVValueTypeNote);
  EXPECT_EQ(copy->type(), OVValueTypeNote);
  EXPECT_EQ(copy->label(), nullptr);
  EXPECT_EQ(copy->value(), nullptr);
}

TEST(SingleValueCopy, OtherLabelLeavesTheSourceUnchanged) {
  const auto label = labelOf("home");
  const auto source = valueOf(OVValueTypePhone, OVString("555"), label);
  const auto copy = source->copy();
  copy->setLabel(labelOf("work"));
  copy->setValue(nullptr);
  copy->setType(OVValueTypeEmail);
  EXPECT_EQ(source->label(), label);
  EXPECT_EQ(ov::cast<OVString>(source->value()), "555");
  EXPECT_EQ(source->type(), OVValueTypePhone);
}

TEST(SingleValueCopy, ChangeOfTheSharedLabelShowsInBoth) {
  const auto source = valueOf(OVValueTypePhone, OVString("555"), labelOf("home"));
  const auto copy = source->copy();
  copy->label()->setDisplayName("Home");
  EXPECT_EQ(source->label()->displayName(), "Home");
}

/// One link of a long chain of values, each the datum of the next.
TEST(SingleValue, LongChainOfValuesIsDestroyedWithoutDeepRecursion) {
  constexpr int kLength = 100000;
  OVRef<OVObject> chain;
  for (int i = 0; i < kLength; ++i) chain = valueOf(OVValueTypeString, chain);
  const std::weak_ptr<OVObject> last = chain;
  chain.reset();
  EXPECT_TRUE(last.expired());
}

TEST(SingleValue, TextsOfEveryKindAreData) {
  const auto value = OVMutableSingleValue::init();
  const auto expectText = [&](const char* text) {
    EXPECT_EQ(ov::cast<OVString>(value->value()), text);
  };
  value->setValue("literal");
  expectText("literal");
  value->setValue(std::string("string"));
  expectText("string");
  value->setValue(std::string_view("view"));
  expectText("view");
  const OVString text = "handle";
  value->setValue(text);
  EXPECT_TRUE(ov::cast<OVString>(value->value()).isSame(text));
}

TEST(SingleValue, NullOfEveryKindTakesTheDatumAway) {
  const char* const noCharacters = nullptr;
  const auto value = OVMutableSingleValue::init();
  const auto expectTakenAway = [&](const auto& null) {
    value->setValue("x");
    value->setValue(null);
    EXPECT_EQ(value->value(), nullptr);
  };
  expectTakenAway(nullptr);
  expectTakenAway(noCharacters);
  expectTakenAway(OVString());
  expectTakenAway(OVRef<OVLabel>());
  expectTakenAway(OVRef<OVObject>());
  expectTakenAway(OVList<OVString>());
}

TEST(SingleValue, AnyCodeIsKept) {
  const auto value = OVMutableSingleValue::init();
  for (const std::int32_t code : {1, 4, 12, 14, -1, INT32_MAX, INT32_MIN}) {
    value->setType(static_cast<OVValueType>(code));
    EXPECT_EQ(value->type(), code);
  }
}

}  // namespace
