#include <OVAddressBookSDK/instant_message.h>

#include "support/printers.h"

namespace {

TEST(InstantMessageAccount, KeepsWhatItIsMadeOf) {
  const auto server = OVInstantMessageServer::serverWithName("JabberInstant");
  const auto account = OVObjectInstantMessage::initWithUserNameServer(" Me@Host ", server);
  EXPECT_EQ(account->userName(), " Me@Host ");
  EXPECT_EQ(account->server(), server);
}

TEST(InstantMessageAccount, TakesNulls) {
  const auto account = OVObjectInstantMessage::initWithUserNameServer(nullptr, nullptr);
  ASSERT_NE(account, nullptr);
  EXPECT_EQ(account->userName(), nullptr);
  EXPECT_EQ(account->server(), nullptr);
}

TEST(InstantMessageAccount, SharesASupportedServiceWithOthers) {
  const auto one = OVObjectInstantMessage::initWithUserNameServer(
      "a", OVInstantMessageServer::serverWithName("QQInstant"));
  const auto other = OVObjectInstantMessage::initWithUserNameServer(
      "b", OVInstantMessageServer::serverWithName("QQInstant"));
  EXPECT_EQ(one->server(), other->server());
}

}  // namespace
