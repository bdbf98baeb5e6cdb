#include <OVAddressBookSDK/instant_message.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;

const std::string kLabel = "*Instant Message|Instant Message: ";

std::string account(const std::string& line) {
  const std::string text = entry(*person(line), OVProPertyInstantMessage);
  return text.starts_with(kLabel) ? text.substr(kLabel.size()) : text;
}

struct ServiceRow {
  const char* server;
  const char* written;
  std::vector<const char*> schemes;
};
const ServiceRow kServices[] = {
    {"AIMInstant", "aim", {"AIM"}},
    {"FacebookInstant", "facebook", {"FACEBOOK", "FB"}},
    {"GaduGaduInstant", "gadugadu", {"GADUGADU", "GADU-GADU", "GG"}},
    {"GoogleTalkInstant", "gtalk", {"GTALK", "GOOGLETALK", "GOOGLE-TALK"}},
    {"ICQInstant", "icq", {"ICQ"}},
    {"JabberInstant", "xmpp", {"XMPP", "JABBER"}},
    {"MSNInstant", "msn", {"MSN", "MSNIM"}},
    {"QQInstant", "qq", {"QQ", "MQQ"}},
    {"SkypeInstant", "skype", {"SKYPE", "SKYPE-USERNAME"}},
    {"YahooInstant", "ymsgr", {"YMSGR", "YAHOO"}},
};

TEST(InstantMessages, KnowTheSupportedServices) {
  ASSERT_EQ(std::size(kServices), OVInstantMessageServer::supportServer().size());
  for (const ServiceRow& row : kServices) {
    const std::string expected = std::string(row.server) + ":me";
    for (const std::string scheme : row.schemes) {
      EXPECT_EQ(account("IMPP:" + scheme + ":me"), expected);
      EXPECT_EQ(account("X-" + scheme + ":me"), expected);
    }
    EXPECT_THAT(writtenLines(person("X-" + std::string(row.schemes[0]) + ":me")),
                ElementsAre("IMPP:" + std::string(row.written) + ":me"));
  }
}

TEST(InstantMessages, ShareTheDescriptorOfASupportedService) {
  const auto read = person("X-AIM:me");
  const auto accounts = std::dynamic_pointer_cast<OVMultipleValue>(
      read->valueByPropertyName(OVProPertyInstantMessage));
  EXPECT_EQ(ov::cast<OVObjectInstantMessage>(accounts->valueAtIndex(0)->value())->server(),
            OVInstantMessageServer::serverWithName("AIMInstant"));
}

TEST(InstantMessages, MayNameTheirServiceInAParameter) {
  EXPECT_EQ(account("IMPP;X-SERVICE-TYPE=GoogleTalk:xmpp:me"), "GoogleTalkInstant:me");
  EXPECT_EQ(account("IMPP;SERVICE-TYPE=gadu-gadu:x-some:me"), "GaduGaduInstant:me");
  EXPECT_EQ(account("IMPP;X-BOOK-SERVICE-TYPE=Skype:me"), "SkypeInstant:me");
  EXPECT_EQ(account("IMPP;X-SERVICE-TYPE=Other Chat:x-other:me"), "Other Chat:me");
}

TEST(InstantMessages, OfOtherServicesKeepTheirName) {
  EXPECT_EQ(account("IMPP:SIP:me@example.com"), "sip:me@example.com");
  EXPECT_EQ(account("IMPP:me"), "null:me");
  EXPECT_EQ(account("IMPP:a%20b:c"), "null:a b:c");
}

TEST(InstantMessages, DecodeTheUserOfAURI) {
  EXPECT_EQ(account("IMPP:xmpp:a%40b%C3%A4"), "JabberInstant:a@b\u00E4");
  EXPECT_EQ(account("X-JABBER:a%40b"), "JabberInstant:a%40b");
}

TEST(InstantMessages, AreAboutThePerson) {
  const std::pair<const char*, const char*> rows[] = {
      {"IMPP:aim:goim?screenname=J", "AIMInstant:J"},
      {"IMPP:aim:goim?message=hello&screenname=J", "AIMInstant:J"},
      {"IMPP:ymsgr:sendIM?J", "YahooInstant:J"},
      {"IMPP:msnim:chat?contact=j@example.com", "MSNInstant:j@example.com"},
      {"IMPP:icq:message?uin=123", "ICQInstant:123"},
      {"IMPP:skype:J?call", "SkypeInstant:J"},
      {"IMPP:xmpp:a@b?message;subject=x", "JabberInstant:a@b"},
      {"IMPP:sip:a@b;transport=tcp", "sip:a@b"},
      {"IMPP:skype:add", "SkypeInstant:add"},
      {"IMPP:aim:goim?", "AIMInstant:goim"},
      {"X-MS-IMADDRESS:sip:a@b", "sip:a@b"},
      {"X-MS-IMADDRESS:a@b", "null:a@b"},
  };
  for (const auto& [line, expected] : rows) EXPECT_EQ(account(line), expected) << line;
}

TEST(InstantMessages, AreWrittenAndComeBack) {
  const std::pair<const char*, const char*> rows[] = {
      {"X-JABBER:a b%;c", "IMPP:xmpp:a%20b%25%3Bc"},
      {"IMPP:sip:a@b", "IMPP:sip:a@b"},
      {"IMPP:me", "IMPP:me"},
      {"IMPP:a%20b%3Ac", "IMPP:a%20b%3Ac"},
      {"IMPP;X-SERVICE-TYPE=Other Chat:x:me", "IMPP;X-SERVICE-TYPE=\"Other Chat\":x:me"},
      {"IMPP;X-SERVICE-TYPE=SIP:x:me", "IMPP;X-SERVICE-TYPE=SIP:x:me"},
      {"IMPP;X-SERVICE-TYPE=fb:x:me", "IMPP;X-SERVICE-TYPE=fb:x:me"},
      {"IMPP;X-SERVICE-TYPE=Skype:skype:me", "IMPP;X-SERVICE-TYPE=Skype:skype:me"},
      {"IMPP:xmpp:a@b?message;subject=x", "IMPP:xmpp:a@b?message;subject=x"},
      {"IMPP:sip:a@b;transport=tcp", "IMPP:sip:a@b;transport=tcp"},
      {"IMPP:XMPP:a%40b", "IMPP:XMPP:a%40b"},
      {"X-AIM;TYPE=HOME:me", "IMPP;TYPE=home:aim:me"},
  };
  for (const auto& [line, written] : rows) {
    const auto read = person(line);
    EXPECT_THAT(writtenLines(read), ElementsAre(written));
    EXPECT_EQ(entry(*person(written), OVProPertyInstantMessage),
              entry(*read, OVProPertyInstantMessage));
  }
}

TEST(InstantMessages, OfUnknownPropertiesAreKept) {
  EXPECT_EQ(entry(*person("X-TWITTER:me"), OVProPertyOther), "*X-TWITTER|X-TWITTER: me");
}

}  // namespace
