#include <OVAddressBookSDK/instant_message.h>

#include <sstream>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "support/fakes/locales.h"
#include "support/printers.h"
#include "support/processes/own_process.h"
#include "support/table_file.h"

namespace {

using Server = OVInstantMessageServer;

OVRef<Server> supported(std::size_t position) { return Server::supportServer()[position - 1]; }

static_assert(std::same_as<decltype(Server::supportServer()), OVList<const Server>>);
static_assert(
    std::same_as<decltype(Server::StandardServerDictionary()), OVDictionary<const Server>>);

void expectNewServer(const OVRef<Server>& server, const OVString& text) {
  ASSERT_NE(server, nullptr);
  EXPECT_EQ(server->name(), text);
  EXPECT_EQ(server->displayName(), text);
  EXPECT_FALSE(Server::supportServer().contains(server));
}

TEST(InstantMessageLookUp, EveryKeyGivesTheSharedService) {
  const auto rows = readTable(OV_SERVICES_TEST_DATA);
  for (std::size_t i = 0; i < rows.size(); ++i)
    EXPECT_EQ(Server::serverWithName(rows[i].at(0)), supported(i + 1)) << rows[i].at(0);
}

TEST(InstantMessageLookUp, AKeyIsComparedExactly) {
  EXPECT_EQ(Server::serverWithName("SkypeInstant"), supported(9));
  for (const char* name : {"skypeinstant", "Skype", "SkypeInstant ", ""})
    expectNewServer(Server::serverWithName(name), name);
}

TEST(InstantMessageLookUp, ANullKeyGivesANewServiceWithoutNames) {
  expectNewServer(Server::serverWithName(nullptr), nullptr);
}

TEST(InstantMessageLookUp, AnUnknownKeyIsNotRemembered) {
  const auto first = Server::serverWithName("Other Chat");
  EXPECT_NE(Server::serverWithName("Other Chat"), first);
  EXPECT_EQ(Server::supportServer().size(), 10U);
  EXPECT_EQ(Server::StandardServerDictionary().size(), 10U);
}

TEST(InstantMessageLookUp, EveryDisplayNameGivesTheSharedService) {
  const auto rows = readTable(OV_SERVICES_TEST_DATA);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto server = supported(i + 1);
    EXPECT_EQ(Server::serverWithDisplayName(rows[i].at(1)), server) << rows[i].at(1);
  }
}

TEST(InstantMessageLookUp, ADisplayNameIsComparedWithoutCase) {
  const auto googleTalk = supported(4);
  EXPECT_EQ(googleTalk->name(), "GoogleTalkInstant");
  for (const char* name : {"google talk", "GOOGLE TALK", "gOOGLE tALK"})
    EXPECT_EQ(Server::serverWithDisplayName(name), googleTalk) << name;
  EXPECT_EQ(Server::serverWithDisplayName("Gadu-Gadu")->name(), "GaduGaduInstant");
}

TEST(InstantMessageLookUp, ADisplayNameIsLowerCasedAsUnicodeDoes) {
  // The Kelvin sign is an upper-case k. Neither of the two Turkish letters is an i.
  const auto skype = supported(9);
  EXPECT_EQ(Server::serverWithDisplayName("S\u212AYPE"), skype);
  expectNewServer(Server::serverWithDisplayName("A\u0130M"), "A\u0130M");
  expectNewServer(Server::serverWithDisplayName("a\u0131m"), "a\u0131m");
}

TEST(InstantMessageLookUp, AnyOtherDisplayNameGivesANewServiceOfThatName) {
  ASSERT_NE(Server::supportServer(), nullptr);
  for (const char* name : {"GoogleTalk", "ICQInstant", "Other Chat", " AIM", "OTHER", ""})
    expectNewServer(Server::serverWithDisplayName(name), name);
  EXPECT_NE(Server::serverWithDisplayName("Other Chat"),
            Server::serverWithDisplayName("Other Chat"));
}

TEST(InstantMessageLookUp, ANullDisplayNameNeverMatches) {
  ASSERT_NE(Server::supportServer(), nullptr);
  expectNewServer(Server::serverWithDisplayName(nullptr), nullptr);
}

TEST(InstantMessageLookUp, ADisplayNameAskedFirstGivesANewService) {
  expectInOwnProcess([] {
    const auto early = Server::serverWithDisplayName("AIM");
    EXPECT_EQ(early->name(), "AIM");
    EXPECT_EQ(Server::serverWithDisplayName("AIM")->name(), "AIM");
    const auto servers = Server::supportServer();
    EXPECT_FALSE(servers.contains(early));
    EXPECT_EQ(Server::serverWithDisplayName("AIM"), servers.front());
  });
}

TEST(InstantMessageLookUp, TheDictionaryBringsDisplayNamesIntoReach) {
  expectInOwnProcess([] {
    EXPECT_EQ(Server::StandardServerDictionary().size(), 10U);
    EXPECT_EQ(Server::serverWithDisplayName("aim")->name(), "AIMInstant");
  });
}

TEST(InstantMessageLookUp, AnUnknownKeyBringsDisplayNamesIntoReach) {
  expectInOwnProcess([] {
    EXPECT_EQ(Server::serverWithName("Other Chat")->name(), "Other Chat");
    EXPECT_EQ(Server::serverWithDisplayName("aim")->name(), "AIMInstant");
  });
}

TEST(InstantMessageLookUp, ReadingAnAccountBringsDisplayNamesIntoReach) {
  expectInOwnProcess([] {
    const auto archive = OVKeyedArchiver::archivedDataWithRootObject(
        OVObjectInstantMessage::initWithUserNameServer("me", nullptr));
    EXPECT_EQ(Server::serverWithDisplayName("aim")->name(), "aim");
    EXPECT_NE(OVKeyedUnarchiver::unarchiveObjectWithData(archive), nullptr);
    EXPECT_EQ(Server::serverWithDisplayName("aim")->name(), "AIMInstant");
  });
}

TEST(InstantMessageLookUp, IsTheSameInAllLocales) {
  ASSERT_NE(Server::supportServer(), nullptr);
  expectSameInAllLocales([] {
    std::ostringstream report;
    for (const char* name : {"AIM", "aim", "A\u0130M", "a\u0131m", "ICQ", "icq", "\u0131cq", "MSN",
                             "JABBER", "SKYPE", "GADU-GADU", "yahoo"})
      report << name << ' ' << Server::serverWithDisplayName(name)->name() << '\n';
    return report.str();
  });
}

}  // namespace
