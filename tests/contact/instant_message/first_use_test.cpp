#include <OVAddressBookSDK/instant_message.h>

#include "support/printers.h"
#include "support/processes/own_process.h"
#include "support/processes/together.h"

namespace {

TEST(InstantMessageServices, MayBeFirstReachedFromManyThreads) {
  expectInOwnProcess([] {
    const auto lists = fromEightThreads([] { return OVInstantMessageServer::supportServer(); });
    EXPECT_THAT(lists, testing::Each(lists.front()));
    EXPECT_EQ(lists.front().size(), 10U);
  });
}

TEST(InstantMessageServices, MayBeFirstReachedByNameFromManyThreads) {
  expectInOwnProcess([] {
    const auto found =
        fromEightThreads([] { return OVInstantMessageServer::serverWithName("QQInstant"); });
    EXPECT_THAT(found, testing::Each(OVInstantMessageServer::supportServer()[7]));
  });
}

TEST(InstantMessageServices, MayBeBuiltWhileOthersLookForDisplayNames) {
  expectInOwnProcess([] {
    const auto found = fromEightThreads([] {
      const auto early = OVInstantMessageServer::serverWithDisplayName("qq");
      EXPECT_TRUE(early->name() == "QQInstant" || early->name() == "qq");
      (void)OVInstantMessageServer::supportServer();
      return OVInstantMessageServer::serverWithDisplayName("qq");
    });
    EXPECT_THAT(found, testing::Each(OVInstantMessageServer::supportServer()[7]));
  });
}

}  // namespace
