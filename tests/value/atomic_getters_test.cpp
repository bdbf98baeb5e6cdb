#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>

#include "support/processes/changing.h"
#include "support/values.h"

namespace {

TEST(AtomicGetters, LabelTextsAreWholeWhileTheyAreReplaced) {
  const auto label = labelOf("0");
  expectWholeWhileChanging([&] { return !label->name().empty() && !label->displayName().empty(); },
                           [&](int i) {
                             label->setName(std::to_string(i));
                             label->setDisplayName(std::to_string(i));
                           });
}

TEST(AtomicGetters, LabelAndDatumAreWholeWhileTheyAreReplaced) {
  const auto value = valueOf(OVValueTypePhone, OVString("0"), labelOf("0"));
  expectWholeWhileChanging(
      [&] {
        return !value->label()->name().empty() && !ov::cast<OVString>(value->value()).empty();
      },
      [&](int i) {
        value->setLabel(labelOf(std::to_string(i)));
        value->setValue(OVString(std::to_string(i)));
      });
}

TEST(AtomicGetters, MainValueIsWholeWhileItIsReplaced) {
  const auto multiple = OVMutableMultipleValue::init();
  multiple->setMainValue(textValue("0"));
  expectWholeWhileChanging(
      [&] { return !ov::cast<OVString>(multiple->mainValue()->value()).empty(); },
      [&](int i) { multiple->setMainValue(textValue(std::to_string(i))); });
}

}  // namespace
