#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/single_value.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

TEST(SingleValueArchive, NamesTheWholeAncestry) {
  EXPECT_EQ(
      ArchivedForm(OVMutableSingleValue::init()).classes(),
      (std::vector<OVString>{"OVMutableSingleValue", "OVSingleValue", "OVValue", "NSObject"}));
}

TEST(SingleValueArchive, WritesTypeLabelAndDatumInThisOrder) {
  const auto value = valueOf(OVValueTypePhone, OVString("555"), labelOf("home"));
  EXPECT_EQ(ArchivedForm(value).keys(), (std::vector<OVString>{"type", "label", "value"}));
  const auto again = restored<OVMutableSingleValue>(value);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->type(), OVValueTypePhone);
  EXPECT_EQ(again->label()->name(), "home");
  EXPECT_EQ(ov::cast<OVString>(again->value()), "555");
}

TEST(SingleValueArchive, WithoutLabelAndDatumWritesTheTypeOnly) {
  const auto value = OVMutableSingleValue::init();
  value->setType(OVValueTypeNote);
  EXPECT_EQ(ArchivedForm(value).keys(), std::vector<OVString>{"type"});
  const auto again = restored<OVMutableSingleValue>(value);
  EXPECT_EQ(again->type(), OVValueTypeNote);
  EXPECT_EQ(again->label(), nullptr);
  EXPECT_EQ(again->value(), nullptr);
}

TEST(SingleValueArchive, WithoutTypeReadsAsTypeZero) {
  const auto value =
      restored<OVSingleValue>(archivedAs("OVMutableSingleValue", {{"value", OVString("555")}}));
  EXPECT_EQ(value->type(), 0);
  EXPECT_EQ(ov::cast<OVString>(value->value()), "555");
}

TEST(SingleValueArchive, TypeMinusOneIsWrittenWithoutSign) {
  const auto value = textValue("datum", static_cast<OVValueType>(-1));
  EXPECT_EQ(ArchivedForm(value).integer("type"), 4294967295);
  EXPECT_EQ(restored<OVSingleValue>(value)->type(), -1);
}

TEST(SingleValueArchive, ReadOnlyValueWritesTheTypeOnly) {
  const ArchivedForm form(OVSingleValue::init());
  EXPECT_EQ(form.classes(), (std::vector<OVString>{"OVSingleValue", "OVValue", "NSObject"}));
  EXPECT_EQ(form.keys(), std::vector<OVString>{"type"});
  const auto again = restored<OVSingleValue>(OVSingleValue::init());
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(ov::cast<OVMutableSingleValue>(again), nullptr);
}

TEST(SingleValueArchive, OneLabelInTwoValuesComesBackAsOne) {
  const auto label = labelOf("home");
  const auto list = OVList<OVSingleValue>::list({valueOf(OVValueTypePhone, OVString("1"), label),
                                                 valueOf(OVValueTypePhone, OVString("2"), label)});
  const auto again = restored<OVList<OVSingleValue>>(list);
  ASSERT_EQ(again.size(), 2U);
  ASSERT_NE(again[0]->label(), nullptr);
  EXPECT_EQ(again[0]->label(), again[1]->label());
}

TEST(SingleValueArchive, EqualLabelsStayApart) {
  const auto list =
      OVList<OVSingleValue>::list({valueOf(OVValueTypePhone, OVString("1"), labelOf("home")),
                                   valueOf(OVValueTypePhone, OVString("2"), labelOf("home"))});
  const auto again = restored<OVList<OVSingleValue>>(list);
  EXPECT_NE(again[0]->label(), again[1]->label());
}

TEST(SingleValueArchive, LabelMayBeTheDatumToo) {
  const auto label = labelOf("home");
  const auto again = restored<OVSingleValue>(valueOf(OVValueTypeString, label, label));
  ASSERT_NE(again->label(), nullptr);
  EXPECT_EQ(again->value(), OVRef<OVObject>(again->label()));
}

TEST(SingleValueArchive, ValueMayBeItsOwnDatum) {
  const auto value = OVMutableSingleValue::init();
  value->setValue(value);
  const auto again = restored<OVMutableSingleValue>(value);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->value(), again);
  value->setValue(nullptr);
  again->setValue(nullptr);
}

TEST(SingleValueArchive, KeepsDates) {
  const auto date = OVDate::dateWithTimeIntervalSinceReferenceDate(-86400.5);
  const auto again = restored<OVSingleValue>(valueOf(OVValueTypeDate, date));
  EXPECT_EQ(ov::cast<OVDate>(again->value())->timeIntervalSinceReferenceDate(), -86400.5);
}

TEST(SingleValueArchive, KeepsImages) {
  const auto image = OVImage::imageWithData(OVData::dataWithText("\x89PNG..."));
  const auto again = restored<OVSingleValue>(valueOf(OVValueTypeImage, image));
  EXPECT_EQ(ov::cast<OVImage>(again->value())->data()->text(), "\x89PNG...");
}

TEST(SingleValueArchive, KeepsTagsAndNumbers) {
  const auto tags = OVList<OVString>::list({"a", "b"});
  const auto restoredTags = restored<OVSingleValue>(valueOf(OVValueTypeTags, tags));
  EXPECT_EQ((ov::cast<OVList<OVString>>(restoredTags->value()))[1], "b");
  const auto number = OVNumber::numberWithInteger(-7);
  const auto restoredNumber = restored<OVSingleValue>(valueOf(OVValueTypeString, number));
  EXPECT_EQ(ov::cast<OVNumber>(restoredNumber->value())->integerValue(), -7);
}

TEST(SingleValueArchive, DatumOfAnUnknownClassIsKeptAndWrittenBack) {
  const auto once = restored<OVSingleValue>(valueOf(OVValueTypeString, foreignObject()));
  EXPECT_TRUE(isForeignObject(once->value()));
  const auto twice = restored<OVSingleValue>(once);
  EXPECT_TRUE(isForeignObject(twice->value()));
}

TEST(SingleValueArchive, LabelOfAnotherClassReadsAsNullAndIsWrittenBack) {
  const auto value = restored<OVMutableSingleValue>(archivedAs(
      "OVMutableSingleValue", {{"type", 6}, {"label", foreignObject()}, {"value", OVString("1")}}));
  EXPECT_EQ(value->label(), nullptr);
  EXPECT_EQ(ArchivedForm(value).keys(), (std::vector<OVString>{"type", "label", "value"}));
  EXPECT_TRUE(isForeignObject(ArchivedForm(value).object("label")));
  EXPECT_TRUE(isForeignObject(ArchivedForm(value->copy()).object("label")));
  value->setLabel(nullptr);
  EXPECT_EQ(ArchivedForm(value).keys(), (std::vector<OVString>{"type", "value"}));
}

TEST(SingleValueArchive, TextAsLabelReadsAsNullAndIsWrittenBack) {
  const auto value =
      restored<OVSingleValue>(archivedAs("OVMutableSingleValue", {{"label", OVString("home")}}));
  EXPECT_EQ(value->label(), nullptr);
  EXPECT_EQ(ov::cast<OVString>(ArchivedForm(value).object("label")), "home");
}

TEST(SingleValueArchive, UnknownKeysAreIgnored) {
  const auto value = restored<OVSingleValue>(
      archivedAs("OVMutableSingleValue", {{"version", 3}, {"value", OVString("1")}}));
  EXPECT_EQ(ArchivedForm(value).keys(), (std::vector<OVString>{"type", "value"}));
}

TEST(SingleValueArchive, SavedReadAndSavedAgainHasTheSameBytes) {
  const auto value = valueOf(static_cast<OVValueType>(-1), foreignObject(), labelOf("home"));
  const auto first = OVKeyedArchiver::archivedDataWithRootObject(value);
  const auto second = OVKeyedArchiver::archivedDataWithRootObject(restored(value));
  EXPECT_EQ(first->text(), second->text());
}

TEST(SingleValueArchive, RecordOfTheReadOnlyClassIsKept) {
  const auto value = restored<OVSingleValue>(archivedAs(
      "OVSingleValue", {{"type", 6}, {"label", labelOf("home")}, {"value", OVString("1")}}));
  EXPECT_EQ(value->type(), OVValueTypePhone);
  EXPECT_EQ(value->label()->name(), "home");
  EXPECT_EQ(ov::cast<OVString>(value->value()), "1");
  const ArchivedForm form(value);
  EXPECT_EQ(form.className(), "OVSingleValue");
  EXPECT_EQ(form.keys(), (std::vector<OVString>{"type", "label", "value"}));
  const auto copy = value->copy();
  EXPECT_EQ(ArchivedForm(copy).className(), "OVMutableSingleValue");
  EXPECT_EQ(ov::cast<OVString>(copy->value()), "1");
}

TEST(SingleValueArchive, NegativeCodesAreWrittenAsUnsignedNumbers) {
  for (const auto& [code, written] : {std::pair<std::int32_t, std::int64_t>{-1, 4294967295},
                                      {-2, 4294967294},
                                      {INT32_MIN, 2147483648},
                                      {INT32_MAX, 2147483647}}) {
    const auto value = valueOf(static_cast<OVValueType>(code), nullptr);
    EXPECT_EQ(ArchivedForm(value).integer("type"), written);
    EXPECT_EQ(restored<OVSingleValue>(value)->type(), code);
  }
}

}  // namespace
