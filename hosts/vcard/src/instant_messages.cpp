#include "instant_messages.h"

#include <algorithm>
#include <array>

#include <OVAddressBookSDK/instant_message.h>

#include "ascii.h"
#include "entries.h"
#include "percent.h"

namespace ov::vcard {

namespace {

/// The schemes of the supported services. The first one of a service is written.
struct Scheme {
  std::string_view scheme;
  std::string_view server;
};
constexpr std::array kSchemes{
    Scheme{"aim", "AIMInstant"},
    Scheme{"facebook", "FacebookInstant"},
    Scheme{"fb", "FacebookInstant"},
    Scheme{"gadugadu", "GaduGaduInstant"},
    Scheme{"gadu-gadu", "GaduGaduInstant"},
    Scheme{"gg", "GaduGaduInstant"},
    Scheme{"gtalk", "GoogleTalkInstant"},
    Scheme{"googletalk", "GoogleTalkInstant"},
    Scheme{"google-talk", "GoogleTalkInstant"},
    Scheme{"icq", "ICQInstant"},
    Scheme{"xmpp", "JabberInstant"},
    Scheme{"jabber", "JabberInstant"},
    Scheme{"msn", "MSNInstant"},
    Scheme{"msnim", "MSNInstant"},
    Scheme{"qq", "QQInstant"},
    Scheme{"mqq", "QQInstant"},
    Scheme{"skype", "SkypeInstant"},
    Scheme{"skype-username", "SkypeInstant"},
    Scheme{"ymsgr", "YahooInstant"},
    Scheme{"yahoo", "YahooInstant"},
};

bool isScheme(std::string_view text) {
  return !text.empty() && !isDigit(text.front()) &&
         std::all_of(text.begin(), text.end(),
                     [](char c) { return isAlphanumeric(c) || c == '+' || c == '-' || c == '.'; });
}

/// The supported service of a scheme or of the end of an X- name; null for none.
OVRef<OVInstantMessageServer> serverOfScheme(std::string_view scheme) {
  const auto* const at = std::find_if(kSchemes.begin(), kSchemes.end(),
                                      [&](const Scheme& s) { return sameWord(s.scheme, scheme); });
  return at == kSchemes.end() ? nullptr : OVInstantMessageServer::serverWithName(at->server);
}

std::string lettersOf(std::string_view text) {
  std::string letters = lowerASCII(text);
  std::erase_if(letters, [](char c) { return !isAlphanumeric(c); });
  return letters;
}

/// The supported service of this name, blanks and hyphens apart; else one that is made of it.
OVRef<OVInstantMessageServer> serverOfType(std::string_view type) {
  const std::string letters = lettersOf(type);
  const auto supported = OVInstantMessageServer::supportServer();
  const auto at = std::find_if(supported.begin(), supported.end(), [&](const auto& server) {
    return !letters.empty() && lettersOf(server->displayName()) == letters;
  });
  return at == supported.end() ? OVInstantMessageServer::serverWithName(type) : *at;
}

bool isServiceType(std::string_view parameter) {
  return parameter == "SERVICE-TYPE" ||
         (parameter.starts_with("X-") && parameter.ends_with("-SERVICE-TYPE"));
}

std::string_view serviceType(const Field& field) {
  for (const Parameter& parameter : field.parameters) {
    if (isServiceType(parameter.name) && !parameter.values.empty()) return parameter.values.front();
  }
  return {};
}

struct Account {
  std::string parameters;
  std::string value;
};

Account spelled(const OVObjectInstantMessage& account) {
  const OVRef<OVInstantMessageServer> server = account.server();
  const OVString name = server == nullptr ? OVString() : server->name();
  if (name.empty()) return {{}, percentEncoded(account.userName(), true)};

  const std::string user = ":" + percentEncoded(account.userName(), false);
  const auto* const at = std::find_if(kSchemes.begin(), kSchemes.end(),
                                      [&](const Scheme& s) { return name == s.server; });
  if (at != kSchemes.end()) return {{}, std::string(at->scheme) + user};
  if (isScheme(name) && lowerASCII(name) == name.view() && serverOfScheme(name) == nullptr) {
    return {{}, name.str() + user};
  }
  return {ov::vcard::spelled(Parameter{"X-SERVICE-TYPE", {name.str()}}),
          "x-" + lettersOf(name) + user};
}

}  // namespace

bool readInstantMessage(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.binary) return false;
  if (field.text.empty()) return true;
  std::string_view user = field.text;
  std::string scheme;
  if (const std::size_t colon = user.find(':');
      colon != std::string_view::npos && isScheme(user.substr(0, colon))) {
    scheme = lowerASCII(user.substr(0, colon));
    user.remove_prefix(colon + 1);
  }
  OVRef<OVInstantMessageServer> server;
  if (const std::string_view type = serviceType(field); !type.empty()) {
    server = serverOfType(type);
  } else {
    server = serverOfScheme(scheme);
    if (server == nullptr) {
      server = OVInstantMessageServer::serverWithName(scheme.empty() ? OVString() : scheme);
    }
  }
  return addEntry(field, binding,
                  OVObjectInstantMessage::initWithUserNameServer(percentDecoded(user), server),
                  draft);
}

bool isServiceProperty(std::string_view name) {
  return name.starts_with("X-") && serverOfScheme(name.substr(2)) != nullptr;
}

bool readServiceAccount(const Field& field, const Binding& binding, PersonDraft& draft) {
  if (field.binary) return false;
  if (field.text.empty()) return true;
  const OVRef<OVInstantMessageServer> server = serverOfScheme(field.name.substr(2));
  return addEntry(field, binding,
                  OVObjectInstantMessage::initWithUserNameServer(field.text, server), draft);
}

void writeInstantMessages(const Binding& binding, const PersonValues& values, CardWriter& card) {
  EntryWriter writer(binding, values, card);
  for (const OVRef<OVSingleValue>& entry : writer.entries()) {
    if (const auto account = ov::cast<OVObjectInstantMessage>(entry->value())) {
      const Account line = spelled(*account);
      writer.write(entry, line.parameters, line.value);
    }
  }
}

}  // namespace ov::vcard
