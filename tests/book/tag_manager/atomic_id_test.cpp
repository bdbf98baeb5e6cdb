#include <OVAddressBookSDK/tag_manager.h>

#include "support/printers.h"
#include "support/processes/together.h"

namespace {

TEST(TagManagerId, IsReadWholeWhileOthersSetIt) {
  const auto manager = OVTagManager::init();
  manager->setTagID("one book");
  const auto ids = fromEightThreads([&] {
    OVString last;
    for (int i = 0; i < 2000; ++i) {
      manager->setTagID(std::string(i % 2 == 0 ? "one book" : "another book"));
      last = manager->tagID();
      if (last != "one book" && last != "another book") break;
    }
    return last;
  });
  EXPECT_THAT(ids,
              testing::Each(testing::AnyOf(testing::Eq("one book"), testing::Eq("another book"))));
}

}  // namespace
