#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>

#include "support/values.h"

namespace {

constexpr int kRounds = 2000;

/// Runs `read` on a thread of its own while this one writes; `read` must always be true.
template <class Read, class Write>
void expectWholeWhileChanging(Read read, Write write) {
  std::atomic<bool> done = false;
  std::atomic<bool> started = false;
  bool allWhole = true;
  {
    const std::jthread reader([&] {
      do {
        allWhole = allWhole && read();
        started = true;
      } while (!done);
    });
    while (!started) std::this_thread::yield();
    for (int i = 0; i < kRounds; ++i) write(i);
    done = true;
  }
  EXPECT_TRUE(allWhole);
}

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
