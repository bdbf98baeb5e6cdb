#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/list.h>

namespace {

/// Two of them at a time have equal names, each a text of its own.
OVList<OVLabel> manyLabels() {
  auto labels = OVList<OVLabel>::list();
  for (int i = 0; i < 60000; ++i) {
    const auto label = OVLabel::init();
    label->setName("Street " + std::to_string(i / 2));
    label->setDisplayName(std::to_string(i));
    labels.push_back(label);
  }
  return labels;
}

// Texts that were equal are one text when they come back, and that must not show in the block.
TEST(ManyLabels, SavedReadAndSavedAgainHaveTheSameBytes) {
  const auto data = OVKeyedArchiver::archivedDataWithRootObject(manyLabels());
  const auto read = OVKeyedUnarchiver::unarchiveObjectWithData(data);
  EXPECT_TRUE(OVKeyedArchiver::archivedDataWithRootObject(read)->text() == data->text());
}

}  // namespace
