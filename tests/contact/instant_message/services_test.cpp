#include <OVAddressBookSDK/instant_message.h>

#include "support/printers.h"
#include "support/processes/own_process.h"
#include "support/table_file.h"

namespace {

TEST(InstantMessageServices, AreInTheOrderOfTheTable) {
  const auto rows = readTable(OV_SERVICES_TEST_DATA);
  ASSERT_EQ(rows.size(), 10U);
  const auto servers = OVInstantMessageServer::supportServer();
  ASSERT_EQ(servers.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(servers[i]->name(), rows[i].at(0));
    EXPECT_EQ(servers[i]->displayName(), rows[i].at(1));
  }
}

TEST(InstantMessageServices, AreTheSameAtEachCall) {
  const auto servers = OVInstantMessageServer::supportServer();
  const auto first = servers.front();
  EXPECT_EQ(OVInstantMessageServer::supportServer(), servers);
  EXPECT_EQ(OVInstantMessageServer::supportServer().front(), first);
  EXPECT_EQ(OVInstantMessageServer::StandardServerDictionary(),
            OVInstantMessageServer::StandardServerDictionary());
}

TEST(InstantMessageServices, AreSharedByListAndDictionary) {
  expectInOwnProcess([] {
    const auto dictionary = OVInstantMessageServer::StandardServerDictionary();
    const auto servers = OVInstantMessageServer::supportServer();
    EXPECT_EQ(dictionary.size(), servers.size());
    for (const auto& server : servers) EXPECT_EQ(dictionary[server->name()], server);
  });
}

TEST(InstantMessageServices, AreNotArchived) {
  EXPECT_EQ(OVInstantMessageServer::serverWithName("QQInstant")->classForCoder(), nullptr);
}

TEST(InstantMessageServices, HaveNoListOfTheirOwn) {
  const auto servers = OVInstantMessageServer::supportServer();
  for (const auto& server : servers) EXPECT_EQ(server->allArray(), nullptr);
  EXPECT_EQ(OVInstantMessageServer::serverWithName("Other Chat")->allArray(), nullptr);
}

}  // namespace
