#include <gtest/gtest.h>

#include <OVAddressBookSDK/property.h>

#include "support/own_process.h"
#include "support/together.h"

namespace {

TEST(CatalogueThreads, RacingFirstCallsGetOneFinishedCatalogue) {
  EXPECT_IN_OWN_PROCESS({
    const auto notes = fromEightThreads([] { return OVProperty::propertyWithName("Note"); });
    for (const auto& note : notes) EXPECT_EQ(note, OVProperty::StandardPropertyArray()->back());
  });
}

TEST(CatalogueThreads, RacingFirstListsAreOneList) {
  EXPECT_IN_OWN_PROCESS({
    const auto lists = fromEightThreads([] { return OVProperty::StandardPropertyArray(); });
    for (const auto& list : lists) EXPECT_EQ(list, lists.front());
    EXPECT_EQ(lists.front()->size(), 23U);
  });
}

}  // namespace
