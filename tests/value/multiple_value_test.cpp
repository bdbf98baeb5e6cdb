#include <OVAddressBookSDK/multiple_value.h>

#include <gtest/gtest.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

constexpr std::uint64_t kPastTheEnd[] = {0, 1, OVNotFound, UINT64_MAX};

TEST(ReadOnlyMultipleValue, IsEmpty) {
  const auto multiple = OVMultipleValue::init();
  EXPECT_EQ(multiple->type(), 12);
  EXPECT_EQ(multiple->count(), 0U);
  EXPECT_EQ(multiple->subType(), 0);
  EXPECT_EQ(multiple->mainValue(), nullptr);
}

TEST(ReadOnlyMultipleValue, HasNoValueAtAnyIndex) {
  const auto multiple = OVMultipleValue::init();
  for (const std::uint64_t index : kPastTheEnd) EXPECT_EQ(multiple->valueAtIndex(index), nullptr);
}

TEST(ReadOnlyMultipleValue, FindsNothing) {
  const auto multiple = OVMultipleValue::init();
  EXPECT_EQ(multiple->indexOfValue(textValue("a")), 9223372036854775807U);
  EXPECT_EQ(multiple->indexOfValue(nullptr), 9223372036854775807U);
}

TEST(ReadOnlyMultipleValue, LabelListsAreNewAndEmpty) {
  const auto multiple = OVMultipleValue::init();
  EXPECT_TRUE(multiple->allLabel().empty());
  EXPECT_TRUE(multiple->allLabel().isImmutable());
  EXPECT_NE(multiple->allLabel(), multiple->allLabel());
  EXPECT_TRUE(multiple->allLabelName().empty());
  EXPECT_FALSE(multiple->allLabelName().isImmutable());
  EXPECT_NE(multiple->allLabelName(), multiple->allLabelName());
}

TEST(ReadOnlyMultipleValue, CopyIsMutable) {
  const auto multiple = OVMultipleValue::init();
  for (const OVRef<OVMutableMultipleValue>& copy : {multiple->copy(), multiple->mutableCopy()}) {
    copy->addValue(textValue("a"));
    EXPECT_EQ(copy->count(), 1U);
  }
}

TEST(ReadOnlyMultipleValue, TypeIsNotThatOfItsArchive) {
  const auto multiple = restored<OVMultipleValue>(archivedAs("OVMultipleValue", {{"type", 6}}));
  ASSERT_NE(multiple, nullptr);
  EXPECT_EQ(multiple->type(), 12);
  EXPECT_EQ(multiple->subType(), 0);
}

TEST(MutableMultipleValue, NewOneIsEmpty) {
  const auto multiple = OVMutableMultipleValue::init();
  EXPECT_EQ(multiple->type(), OVValueTypeMultiple);
  EXPECT_EQ(multiple->count(), 0U);
  EXPECT_EQ(multiple->subType(), 0);
  EXPECT_EQ(multiple->mainValue(), nullptr);
  for (const std::uint64_t index : kPastTheEnd) EXPECT_EQ(multiple->valueAtIndex(index), nullptr);
  EXPECT_EQ(multiple->indexOfValue(textValue("a")), OVNotFound);
  EXPECT_EQ(multiple->indexOfValue(nullptr), OVNotFound);
}

TEST(MutableMultipleValue, NotFoundIsTheLargestSignedNumber) {
  EXPECT_EQ(OVNotFound, 9223372036854775807U);
}

TEST(MutableMultipleValue, ValuesAreFoundByIdentityNotByContent) {
  const auto multiple = OVMutableMultipleValue::init();
  const auto first = textValue("same");
  const auto second = textValue("same");
  multiple->addValue(first);
  EXPECT_EQ(multiple->indexOfValue(second), OVNotFound);
  multiple->addValue(second);
  multiple->addValue(first);
  EXPECT_EQ(multiple->indexOfValue(first), 0U);
  EXPECT_EQ(multiple->indexOfValue(second), 1U);
}

TEST(MutableMultipleValue, IndexEqualToTheCountGivesNull) {
  const auto multiple = OVMutableMultipleValue::init();
  const auto value = textValue("a");
  multiple->addValue(value);
  EXPECT_EQ(multiple->valueAtIndex(0), value);
  EXPECT_EQ(multiple->valueAtIndex(1), nullptr);
  EXPECT_EQ(multiple->valueAtIndex(UINT64_MAX), nullptr);
}

TEST(MutableMultipleValue, AllLabelIsEmptyWhateverTheElements) {
  const auto multiple = OVMutableMultipleValue::init();
  multiple->addValue(valueOf(OVValueTypePhone, OVString("1"), labelOf("home")));
  EXPECT_TRUE(multiple->allLabel().empty());
  EXPECT_TRUE(multiple->allLabel().isImmutable());
  EXPECT_NE(multiple->allLabel(), multiple->allLabel());
  static_assert(std::same_as<decltype(multiple->allLabel()), OVList<const OVLabel>>);
}

TEST(MutableMultipleValue, AllLabelNameListsDisplayNamesInOrder) {
  const auto multiple = OVMutableMultipleValue::init();
  EXPECT_TRUE(multiple->allLabelName().empty());
  const auto home = labelOf("home");
  home->setDisplayName("Home");
  const auto work = OVLabel::init();
  work->setDisplayName("Work");
  for (const auto& label : {home, work, home}) {
    multiple->addValue(valueOf(OVValueTypePhone, OVString("1"), label));
  }
  const auto names = multiple->allLabelName();
  ASSERT_EQ(names.size(), 3U);
  EXPECT_EQ(names[0], "Home");
  EXPECT_EQ(names[1], "Work");
  EXPECT_EQ(names[2], "Home");
  names.push_back("more");
  EXPECT_EQ(multiple->allLabelName().size(), 3U);
}

TEST(MutableMultipleValue, AllLabelNameRefusesAnElementWithoutLabel) {
  const auto multiple = OVMutableMultipleValue::init();
  multiple->addValue(valueOf(OVValueTypePhone, OVString("1"), labelOf("home")));
  multiple->addValue(valueOf(OVValueTypePhone, OVString("2")));
  EXPECT_THROW((void)multiple->allLabelName(), std::invalid_argument);
}

TEST(MutableMultipleValue, AllLabelNameRefusesALabelWithoutDisplayName) {
  const auto multiple = OVMutableMultipleValue::init();
  const auto label = OVLabel::init();
  label->setName("home");
  multiple->addValue(valueOf(OVValueTypePhone, OVString("1"), label));
  EXPECT_THROW((void)multiple->allLabelName(), std::invalid_argument);
  label->setDisplayName("");
  EXPECT_EQ(multiple->allLabelName().size(), 1U);
}

}  // namespace
