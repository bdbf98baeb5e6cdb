#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/multiple_value.h>

#include "support/printers.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

OVRef<OVMutableSingleValue> valueOf(const OVString& text) {
  auto value = OVMutableSingleValue::init();
  value->setValue(text);
  return value;
}

template <class Multiple>
std::vector<OVString> textsOf(const OVRef<Multiple>& multiple) {
  std::vector<OVString> texts;
  for (const auto& value : multiple) texts.push_back(ov::cast<OVString>(value->value()));
  return texts;
}

TEST(MultipleValueLoop, WalksThroughTheElementsInOrder) {
  const auto multiple = OVMutableMultipleValue::init();
  for (const char* text : {"a", "b", "c"}) multiple->addValue(valueOf(text));
  EXPECT_THAT(textsOf(multiple), ElementsAre("a", "b", "c"));
  EXPECT_THAT(textsOf<OVMultipleValue>(multiple), ElementsAre("a", "b", "c"));
  EXPECT_THAT(textsOf<const OVMultipleValue>(multiple), ElementsAre("a", "b", "c"));
}

TEST(MultipleValueLoop, TakesNullAndAValueWithoutElementsAsEmpty) {
  EXPECT_THAT(textsOf(OVRef<OVMultipleValue>()), IsEmpty());
  EXPECT_THAT(textsOf(OVRef<OVMutableMultipleValue>()), IsEmpty());
  EXPECT_THAT(textsOf(OVMultipleValue::init()), IsEmpty());
}

TEST(MultipleValueLoop, KeepsATemporaryAlive) {
  const auto multiple = OVMutableMultipleValue::init();
  multiple->addValue(valueOf("a"));
  std::vector<OVString> texts;
  for (const auto& value : multiple->copy()) texts.push_back(ov::cast<OVString>(value->value()));
  EXPECT_THAT(texts, ElementsAre("a"));
}

TEST(MultipleValueLoop, GoesOnWithWhatIsThereWhenTheValueChanges) {
  const auto multiple = OVMutableMultipleValue::init();
  for (const char* text : {"a", "b", "c", "d"}) multiple->addValue(valueOf(text));
  std::vector<OVString> seen;
  for (const auto& value : multiple) {
    seen.push_back(ov::cast<OVString>(value->value()));
    if (seen.size() == 1) multiple->removeValueAtIndex(3);
  }
  EXPECT_THAT(seen, ElementsAre("a", "b", "c"));
}

/// Archives a list of any objects as a multiple value.
class ForeignMultipleValue : public OVMutableMultipleValue {
 public:
  explicit ForeignMultipleValue(std::vector<OVRef<OVObject>> elements)
      : elements_(std::move(elements)) {}
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    coder.encodeListForKey(elements_, "valueArray");
  }

 private:
  std::vector<OVRef<OVObject>> elements_;
};

TEST(MultipleValueLoop, LeavesObjectsOfOtherClassesOut) {
  const auto foreign = std::make_shared<ForeignMultipleValue>(
      std::vector<OVRef<OVObject>>{OVString("x"), valueOf("a"), OVString("y"), valueOf("b")});
  const auto read = ov::cast<OVMutableMultipleValue>(OVKeyedUnarchiver::unarchiveObjectWithData(
      OVKeyedArchiver::archivedDataWithRootObject(foreign)));
  EXPECT_EQ(read->count(), 4U);
  EXPECT_THAT(textsOf(read), ElementsAre("a", "b"));
}

}  // namespace
