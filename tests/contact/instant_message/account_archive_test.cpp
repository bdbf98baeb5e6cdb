#include <OVAddressBookSDK/instant_message.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/number.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Account = OVObjectInstantMessage;
using Server = OVInstantMessageServer;

constexpr const char* kClassName = "OVObjectInstantMessage";

OVRef<Account> account(const OVString& userName, const OVRef<Server>& server) {
  return Account::initWithUserNameServer(userName, server);
}

OVRef<Account> readFrom(std::vector<ArchivedField> fields) {
  return restored<Account>(archivedAs(kClassName, std::move(fields)));
}

TEST(InstantMessageArchive, EverySupportedServiceComesBackAsTheSharedOne) {
  const auto servers = Server::supportServer();
  for (const auto& server : servers) {
    const auto read = restored<Account>(account("me", server));
    EXPECT_EQ(read->userName(), "me");
    EXPECT_EQ(read->server(), server);
  }
}

TEST(InstantMessageArchive, AnAccountOfQqComesBackOnTheSharedService) {
  const auto read = restored<Account>(account("me", Server::serverWithName("QQInstant")));
  EXPECT_EQ(read->server(), Server::serverWithName("QQInstant"));
}

TEST(InstantMessageArchive, HoldsTheKeyOfTheServiceOnly) {
  const ArchivedForm form(account("me", Server::serverWithName("QQInstant")));
  EXPECT_EQ(form.className(), kClassName);
  EXPECT_THAT(form.keys(), ElementsAre("userName", "serverName"));
  EXPECT_EQ(ov::cast<OVString>(form.object("userName")), "me");
  EXPECT_EQ(ov::cast<OVString>(form.object("serverName")), "QQInstant");
}

TEST(InstantMessageArchive, AnUnknownServiceKeepsItsText) {
  ASSERT_NE(Server::supportServer(), nullptr);
  const auto server = Server::serverWithDisplayName("Other Chat");
  const auto written = account("me", server);
  EXPECT_EQ(ov::cast<OVString>(ArchivedForm(written).object("serverName")), "Other Chat");
  const auto read = restored<Account>(written);
  EXPECT_NE(read->server(), server);
  EXPECT_EQ(read->server()->name(), "Other Chat");
  EXPECT_EQ(read->server()->displayName(), "Other Chat");
}

TEST(InstantMessageArchive, NullsAreNotWritten) {
  EXPECT_THAT(ArchivedForm(account(nullptr, nullptr)).keys(), IsEmpty());
  EXPECT_THAT(ArchivedForm(account("me", nullptr)).keys(), ElementsAre("userName"));
  EXPECT_THAT(ArchivedForm(account("", nullptr)).keys(), ElementsAre("userName"));
}

TEST(InstantMessageArchive, AServiceWithoutAKeyWritesNull) {
  const ArchivedForm form(account(nullptr, Server::serverWithName(nullptr)));
  EXPECT_THAT(form.keys(), ElementsAre("serverName"));
  EXPECT_EQ(form.object("serverName"), nullptr);
}

TEST(InstantMessageArchive, WithoutAStoredServiceItHasOneWithoutNames) {
  for (const auto& read :
       {readFrom({}), restored<Account>(account(nullptr, Server::serverWithName(nullptr)))}) {
    EXPECT_EQ(read->userName(), nullptr);
    ASSERT_NE(read->server(), nullptr);
    EXPECT_EQ(read->server()->name(), nullptr);
    EXPECT_EQ(read->server()->displayName(), nullptr);
  }
}

TEST(InstantMessageArchive, TheStoredKeyIsComparedExactly) {
  const auto read = readFrom({{"serverName", OVString("qqinstant")}});
  EXPECT_EQ(read->server()->name(), "qqinstant");
  EXPECT_EQ(read->server()->displayName(), "qqinstant");
}

TEST(InstantMessageArchive, FieldsOfAnotherKindReadAsNull) {
  const auto read = readFrom({{"userName", OVNumber::numberWithInteger(1)}, {"serverName", 2}});
  EXPECT_EQ(read->userName(), nullptr);
  EXPECT_EQ(read->server()->name(), nullptr);
}

TEST(InstantMessageArchive, TheSameContentGivesTheSameBytes) {
  const auto first = OVKeyedArchiver::archivedDataWithRootObject(
      account("me", Server::serverWithName("Other Chat")));
  const auto second = OVKeyedArchiver::archivedDataWithRootObject(
      OVKeyedUnarchiver::unarchiveObjectWithData(first));
  EXPECT_EQ(first->text(), second->text());
}

TEST(InstantMessageArchive, FieldsOfAnotherKindAreWrittenBack) {
  const auto read = readFrom({{"userName", foreignObject()}, {"serverName", foreignObject()}});
  ASSERT_NE(read->server(), nullptr);
  EXPECT_EQ(read->server()->displayName(), nullptr);
  for (const auto& each : {read, account(nullptr, read->server())}) {
    EXPECT_TRUE(isForeignObject(ArchivedForm(each).object("serverName")));
  }
  EXPECT_TRUE(isForeignObject(ArchivedForm(read).object("userName")));
}

/// A host's own kind of account.
class Bot : public Account {
 public:
  explicit Bot(OVString name)
      : Account(std::move(name), OVInstantMessageServer::serverWithName("QQInstant")) {}
};

TEST(DerivedAccount, IsMadeWithNameAndService) {
  const auto bot = std::make_shared<Bot>("b");
  EXPECT_EQ(bot->userName(), "b");
  EXPECT_EQ(bot->server()->displayName(), "QQ");
}

}  // namespace
