#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"
#include "value/multiple_values.h"

namespace {

using Keys = std::vector<OVString>;

OVRef<OVMutableMultipleValue> threePhones() {
  return multipleOf({textValue("0", OVValueTypePhone), textValue("1", OVValueTypePhone),
                     textValue("2", OVValueTypePhone)});
}

/// Three elements under an index that may be any number.
OVRef<OVMutableMultipleValue> restoredWithMainIndex(std::int64_t index) {
  const auto list = OVList<OVSingleValue>::list({textValue("0"), textValue("1"), textValue("2")});
  return restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", list}, {"mainValueIndex", index}}));
}

TEST(MultipleValueArchive, NamesTheWholeAncestry) {
  EXPECT_EQ(ArchivedForm(OVMutableMultipleValue::init()).classes(),
            (Keys{"OVMutableMultipleValue", "OVMultipleValue", "OVValue", "NSObject"}));
}

TEST(MultipleValueArchive, HoldsTheElementsAndThePositionOfTheMainValue) {
  const auto multiple = threePhones();
  multiple->setMainValue(multiple->valueAtIndex(1));
  const ArchivedForm form(multiple);
  EXPECT_EQ(form.keys(), (Keys{"valueArray", "mainValueIndex"}));
  EXPECT_EQ(form.integer("mainValueIndex"), 1);
  const auto list = ov::cast<OVList<OVOpaqueObject>>(form.object("valueArray"));
  ASSERT_EQ(list.size(), 3U);
  EXPECT_FALSE(list.isImmutable());
  EXPECT_EQ(list[0]->className(), "OVMutableSingleValue");
}

TEST(MultipleValueArchive, ComesBackWithItsMainValue) {
  const auto multiple = threePhones();
  multiple->setMainValue(multiple->valueAtIndex(2));
  const auto again = restored<OVMutableMultipleValue>(multiple);
  ASSERT_EQ(again->count(), 3U);
  EXPECT_EQ(again->mainValue(), again->valueAtIndex(2));
  EXPECT_EQ(again->subType(), OVValueTypePhone);
  EXPECT_EQ(ov::cast<OVString>(again->valueAtIndex(1)->value()), "1");
  EXPECT_NE(ov::cast<OVMutableSingleValue>(again->valueAtIndex(1)), nullptr);
}

TEST(MultipleValueArchive, MainValueThatIsThereTwiceIsWrittenUnderItsFirstPosition) {
  const auto twice = textValue("twice");
  const auto multiple = multipleOf({textValue("0"), twice, twice});
  multiple->setMainValue(twice);
  EXPECT_EQ(ArchivedForm(multiple).integer("mainValueIndex"), 1);
  const auto again = restored<OVMutableMultipleValue>(multiple);
  EXPECT_EQ(again->valueAtIndex(1), again->valueAtIndex(2));
}

TEST(MultipleValueArchive, EmptyOneWritesNoKeys) {
  EXPECT_EQ(ArchivedForm(OVMutableMultipleValue::init()).keys(), Keys{});
  const auto emptied = multipleOf({textValue("a")});
  emptied->removeValueAtIndex(0);
  EXPECT_EQ(ArchivedForm(emptied).keys(), Keys{});
}

TEST(MultipleValueArchive, MainValueOutsideTheListIsNotWritten) {
  const auto multiple = threePhones();
  multiple->setMainValue(textValue("outside"));
  EXPECT_EQ(ArchivedForm(multiple).keys(), Keys{"valueArray"});
  const auto again = restored<OVMutableMultipleValue>(multiple);
  EXPECT_EQ(again->mainValue(), again->valueAtIndex(0));
}

TEST(MultipleValueArchive, WithoutMainValueTheFirstElementComesBackAsMain) {
  const auto multiple = threePhones();
  multiple->setMainValue(nullptr);
  EXPECT_EQ(ArchivedForm(multiple).keys(), Keys{"valueArray"});
  const auto again = restored<OVMutableMultipleValue>(multiple);
  EXPECT_EQ(again->mainValue(), again->valueAtIndex(0));
}

TEST(MultipleValueArchive, MainValueWithoutAnyElementIsNotWritten) {
  const auto multiple = OVMutableMultipleValue::init();
  multiple->setMainValue(textValue("outside"));
  EXPECT_EQ(ArchivedForm(multiple).keys(), Keys{});
  EXPECT_EQ(restored<OVMutableMultipleValue>(multiple)->mainValue(), nullptr);
}

class MainIndex : public testing::TestWithParam<std::pair<std::int64_t, std::uint64_t>> {};

TEST_P(MainIndex, GivesTheMainValue) {
  const auto [written, position] = GetParam();
  const auto multiple = restoredWithMainIndex(written);
  ASSERT_EQ(multiple->count(), 3U);
  ASSERT_NE(multiple->mainValue(), nullptr);
  EXPECT_EQ(multiple->mainValue(), multiple->valueAtIndex(position));
}

INSTANTIATE_TEST_SUITE_P(Any, MainIndex,
                         testing::Values(std::pair{-3, 0}, std::pair{0, 0}, std::pair{1, 1},
                                         std::pair{2, 2}, std::pair{3, 0}, std::pair{99, 0},
                                         std::pair{INT64_MAX, 0}, std::pair{INT64_MIN, 0},
                                         std::pair{4294967296 + 1, 0}));

TEST(MultipleValueArchive, WithoutMainIndexTheFirstElementIsMain) {
  const auto list = OVList<OVSingleValue>::list({textValue("0"), textValue("1")});
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", list}}));
  EXPECT_EQ(multiple->mainValue(), multiple->valueAtIndex(0));
}

TEST(MultipleValueArchive, TypeKeyIsReadAndNotUsed) {
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue",
                 {{"type", 6}, {"valueArray", OVList<OVSingleValue>::list({textValue("0")})}}));
  EXPECT_EQ(multiple->type(), 12);
  EXPECT_EQ(multiple->subType(), 0);
  EXPECT_EQ(ArchivedForm(multiple).keys(), (Keys{"valueArray", "mainValueIndex"}));
}

TEST(MultipleValueArchive, EmptyListIsAListThatTakesValues) {
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", OVList<OVSingleValue>::list()}}));
  EXPECT_EQ(multiple->mainValue(), nullptr);
  EXPECT_EQ(multiple->indexOfValue(textValue("a")), OVNotFound);
  multiple->addValue(textValue("a"));
  EXPECT_EQ(multiple->count(), 1U);
}

TEST(MultipleValueArchive, ElementsOfOtherClassesReadAsNullAndAreWrittenBack) {
  const auto list = OVList<OVObject>::list({foreignObject(), textValue("1"), OVString("text")});
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", list}}));
  ASSERT_EQ(multiple->count(), 3U);
  EXPECT_EQ(multiple->valueAtIndex(0), nullptr);
  EXPECT_EQ(ov::cast<OVString>(multiple->valueAtIndex(1)->value()), "1");
  EXPECT_EQ(multiple->valueAtIndex(2), nullptr);
  EXPECT_EQ(multiple->mainValue(), nullptr);
  EXPECT_EQ(multiple->subType(), 0);
  const ArchivedForm form(multiple);
  EXPECT_EQ(form.integer("mainValueIndex"), 0);
  const auto written = ov::cast<OVList<OVObject>>(form.object("valueArray"));
  ASSERT_EQ(written.size(), 3U);
  EXPECT_TRUE(isForeignObject(written[0]));
  EXPECT_EQ(ov::cast<OVString>(written[2]), "text");
}

TEST(MultipleValueArchive, ElementsOfOtherClassesAreLeftOutOfCopies) {
  const auto list = OVList<OVObject>::list({foreignObject(), textValue("1")});
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", list}, {"mainValueIndex", 1}}));
  const auto copy = multiple->copy();
  ASSERT_EQ(copy->count(), 1U);
  EXPECT_EQ(copy->mainValue(), nullptr);
}

TEST(MultipleValueArchive, LabelNamesRefuseElementsOfOtherClasses) {
  const auto multiple = restored<OVMutableMultipleValue>(archivedAs(
      "OVMutableMultipleValue", {{"valueArray", OVList<OVObject>::list({foreignObject()})}}));
  EXPECT_THROW((void)multiple->allLabelName(), std::invalid_argument);
}

TEST(MultipleValueArchive, SomethingElseInPlaceOfTheListReadsAsNoList) {
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", OVString("no list")}}));
  EXPECT_EQ(multiple->count(), 0U);
  EXPECT_EQ(multiple->indexOfValue(textValue("a")), 0U);
}

TEST(MultipleValueArchive, MayHoldItselfAsADatum) {
  const auto multiple = OVMutableMultipleValue::init();
  multiple->addValue(valueOf(OVValueTypeMultiple, multiple));
  const auto again = restored<OVMutableMultipleValue>(multiple);
  ASSERT_EQ(again->count(), 1U);
  EXPECT_EQ(again->valueAtIndex(0)->value(), again);
  multiple->removeValueAtIndex(0);
  again->removeValueAtIndex(0);
}

TEST(MultipleValueArchive, SavedReadAndSavedAgainHasTheSameBytes) {
  const auto multiple = threePhones();
  multiple->setMainValue(multiple->valueAtIndex(2));
  const auto first = OVKeyedArchiver::archivedDataWithRootObject(multiple);
  const auto second = OVKeyedArchiver::archivedDataWithRootObject(restored(multiple));
  EXPECT_EQ(first->text(), second->text());
}

TEST(MultipleValueArchive, StoredTypeOfTheReadOnlyClassIsWrittenBack) {
  for (const std::int64_t type : {0LL, 5LL, 12LL, 4294967295LL}) {
    const auto multiple =
        restored<OVMultipleValue>(archivedAs("OVMultipleValue", {{"type", type}}));
    EXPECT_EQ(multiple->type(), 12);
    EXPECT_EQ(ArchivedForm(multiple).className(), "OVMultipleValue");
    EXPECT_EQ(ArchivedForm(multiple).integer("type"), type);
  }
  EXPECT_EQ(ArchivedForm(OVMultipleValue::init()).integer("type"), 12);
}

TEST(MultipleValueArchive, ElementsOfTheReadOnlyClassAreElements) {
  const auto element = archivedAs(
      "OVSingleValue", {{"type", 6}, {"label", labelOf("home")}, {"value", OVString("1")}});
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", OVList<OVObject>::list({element})}}));
  ASSERT_EQ(multiple->count(), 1U);
  EXPECT_EQ(multiple->subType(), OVValueTypePhone);
  EXPECT_EQ(ov::cast<OVString>(multiple->mainValue()->value()), "1");
}

TEST(MultipleValueArchive, SomethingElseInPlaceOfTheListReadsAsNoneAndIsWrittenBack) {
  for (const OVRef<OVObject>& other : {foreignObject(), OVRef<OVObject>(textValue("1"))}) {
    const auto multiple = restored<OVMutableMultipleValue>(
        archivedAs("OVMutableMultipleValue", {{"valueArray", other}}));
    EXPECT_EQ(multiple->count(), 0U);
    EXPECT_EQ(multiple->mainValue(), nullptr);
    EXPECT_EQ(multiple->valueAtIndex(0), nullptr);
    EXPECT_EQ(multiple->indexOfValue(textValue("a")), 0U);
    EXPECT_EQ(multiple->copy()->count(), 0U);
    multiple->addValue(textValue("a"));
    multiple->removeValueAtIndex(0);
    multiple->removeValue(textValue("a"));
    multiple->replaceValueForIndex(textValue("a"), 0);
    EXPECT_EQ(multiple->count(), 0U);
    const ArchivedForm form(multiple);
    EXPECT_EQ(form.keys(), Keys{"valueArray"});
    EXPECT_EQ(ov::cast<OVOpaqueObject>(form.object("valueArray"))->className(),
              other->classForCoder()->name);
  }
}

TEST(MultipleValueArchive, ElementsOfDifferentTypesAreKept) {
  const auto list = OVList<OVSingleValue>::list({textValue("1", OVValueTypePhone),
                                                 textValue("a@b", OVValueTypeEmail),
                                                 textValue("x", static_cast<OVValueType>(-5))});
  const auto multiple = restored<OVMutableMultipleValue>(
      archivedAs("OVMutableMultipleValue", {{"valueArray", list}, {"mainValueIndex", 1}}));
  ASSERT_EQ(multiple->count(), 3U);
  EXPECT_EQ(multiple->valueAtIndex(0)->type(), OVValueTypePhone);
  EXPECT_EQ(multiple->valueAtIndex(2)->type(), -5);
  EXPECT_EQ(multiple->subType(), OVValueTypeEmail);
  multiple->addValue(textValue("2", OVValueTypePhone));
  EXPECT_EQ(multiple->count(), 3U);
  multiple->addValue(textValue("c@d", OVValueTypeEmail));
  EXPECT_EQ(multiple->count(), 4U);
  EXPECT_EQ(restored<OVMutableMultipleValue>(multiple)->valueAtIndex(0)->type(), OVValueTypePhone);
  // A copy keeps what goes with its first element, and has no element at the main value's place.
  const auto copy = multiple->copy();
  ASSERT_EQ(copy->count(), 1U);
  EXPECT_EQ(copy->subType(), 0);
}

}  // namespace
