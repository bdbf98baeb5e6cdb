#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/value.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

TEST(RootValue, HasTypeZero) { EXPECT_EQ(OVValue::init()->type(), 0); }

TEST(RootValue, CopyIsTheValueItself) {
  const auto value = OVValue::init();
  EXPECT_EQ(value->copy(), value);
  EXPECT_EQ(value->mutableCopy(), value);
}

TEST(RootValue, CopyKeepsTheValueAlive) {
  auto value = OVValue::init();
  const std::weak_ptr<OVValue> watch = value;
  auto copy = value->copy();
  value.reset();
  EXPECT_FALSE(watch.expired());
  copy.reset();
  EXPECT_TRUE(watch.expired());
}

TEST(RootValue, RestoredValueIsItsOwnCopy) {
  const auto value = restored<OVValue>(OVValue::init());
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->copy(), value);
}

TEST(RootValue, CopyThroughTheRootClassIsThatOfTheActualClass) {
  const OVRef<OVValue> single = textValue("a");
  const auto singleCopy = single->copy();
  EXPECT_NE(singleCopy, single);
  EXPECT_NE(ov::cast<OVMutableSingleValue>(singleCopy), nullptr);
  const OVRef<OVValue> multiple = OVMutableMultipleValue::init();
  const auto multipleCopy = multiple->mutableCopy();
  EXPECT_NE(multipleCopy, multiple);
  EXPECT_NE(ov::cast<OVMutableMultipleValue>(multipleCopy), nullptr);
}

TEST(RootValue, IsArchivedUnderItsName) {
  const ArchivedForm form(OVValue::init());
  EXPECT_EQ(form.classes(), (std::vector<OVString>{"OVValue", "NSObject"}));
  EXPECT_EQ(form.keys(), std::vector<OVString>{"type"});
  EXPECT_EQ(form.integer("type"), 0);
}

TEST(RootValue, ReadsItsType) {
  EXPECT_EQ(restored<OVValue>(archivedAs("OVValue", {{"type", 7}}))->type(), 7);
}

TEST(RootValue, WithoutTypeReadsAsZero) {
  EXPECT_EQ(restored<OVValue>(archivedAs("OVValue", {}))->type(), 0);
}

TEST(RootValue, TypeIsCutToItsLowBits) {
  const auto typeOf = [](std::int64_t written) {
    return restored<OVValue>(archivedAs("OVValue", {{"type", written}}))->type();
  };
  EXPECT_EQ(typeOf(4294967295), -1);
  EXPECT_EQ(typeOf(4294967296 + 6), 6);
  EXPECT_EQ(typeOf(-1), -1);
  EXPECT_EQ(typeOf(2147483648), INT32_MIN);
}

TEST(RootValue, UnknownKeysAreIgnored) {
  const auto value = restored<OVValue>(
      archivedAs("OVValue", {{"version", 9}, {"type", 3}, {"more", OVString("x")}}));
  EXPECT_EQ(value->type(), 3);
  EXPECT_EQ(ArchivedForm(value).keys(), std::vector<OVString>{"type"});
}

}  // namespace
