#include <gtest/gtest.h>

#include <OVAddressBookSDK/property.h>

#include "support/processes/own_process.h"
#include "support/processes/together.h"

namespace {

TEST(CatalogueThreads, RacingFirstLookUpsGetOneFinishedCatalogue) {
  expectInOwnProcess([] {
    const auto notes = fromEightThreads([] { return OVProperty::propertyWithName("Note"); });
    EXPECT_THAT(notes, testing::Each(OVProperty::StandardPropertyArray().back()));
  });
}

TEST(CatalogueThreads, RacingFirstListsAreOneList) {
  expectInOwnProcess([] {
    const auto lists = fromEightThreads([] { return OVProperty::StandardPropertyArray(); });
    EXPECT_THAT(lists, testing::Each(lists.front()));
    EXPECT_EQ(lists.front().size(), 23U);
  });
}

}  // namespace
