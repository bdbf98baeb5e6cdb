// Accounts are spelled in many ways: IMPP with a URI, X- lines named after a service, a service in
// a parameter. Reading accepts them all; writing uses IMPP with the first scheme of the service.

#include <algorithm>
#include <array>

#include <OVAddressBookSDK/instant_message.h>

#include "codec/ascii.h"
#include "codec/parameters.h"
#include "codec/percent.h"
#include "properties.h"
#include "reading.h"

namespace ov::card {

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
  const OVList<const OVInstantMessageServer> supported = OVInstantMessageServer::supportServer();
  const auto at = std::find_if(supported.begin(), supported.end(), [&](const auto& server) {
    return !letters.empty() && lettersOf(server->displayName()) == letters;
  });
  return at == supported.end() ? OVInstantMessageServer::serverWithName(type) : *at;
}

bool isServiceType(std::string_view parameter) {
  return parameter == "SERVICE-TYPE" ||
         (parameter.starts_with("X-") && parameter.ends_with("-SERVICE-TYPE"));
}

std::string_view serviceType(const Line& line) {
  for (const Parameter& parameter : line.parameters()) {
    if (isServiceType(parameter.name)) return parameter.values.front();
  }
  return {};
}

/// What a URI can ask for in place of a user, who is then in its query.
constexpr std::array<std::string_view, 8> kRequests{"add",  "addbuddy", "addfriend", "call",
                                                    "chat", "goim",     "message",   "sendim"};
constexpr std::array<std::string_view, 5> kUserKeys{"screenname", "contact", "uin", "id", "user"};

template <std::size_t N>
bool isOneOf(const std::array<std::string_view, N>& words, std::string_view word) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view each) { return sameWord(each, word); });
}

/// The user in the query of a request.
std::string_view userIn(std::string_view query) {
  while (!query.empty()) {
    const std::size_t end = std::min(query.find('&'), query.size());
    const std::string_view pair = query.substr(0, end);
    const std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos) return pair;
    if (isOneOf(kUserKeys, pair.substr(0, equals))) return pair.substr(equals + 1);
    query.remove_prefix(std::min(end + 1, query.size()));
  }
  return {};
}

/// The user that a URI is about, from what follows its scheme.
std::string_view userOf(std::string_view rest, std::string_view scheme) {
  const std::size_t mark = rest.find('?');
  if (mark != std::string_view::npos && isOneOf(kRequests, rest.substr(0, mark))) {
    if (const std::string_view user = userIn(rest.substr(mark + 1)); !user.empty()) return user;
  }
  std::string_view user = scheme.empty() ? rest : rest.substr(0, mark);
  if (scheme == "sip" || scheme == "sips") user = user.substr(0, user.find(';'));
  return user.empty() ? rest : user;
}

struct Spelled {
  std::string parameters;
  std::string value;
};

Spelled spelled(const OVObjectInstantMessage& account) {
  const OVRef<OVInstantMessageServer> server = account.server();
  const OVString name = server == nullptr ? OVString() : server->name();
  if (name.empty()) return {{}, percentEncoded(account.userName(), true)};

  const std::string user = ":" + percentEncoded(account.userName(), false);
  const auto* const at = std::find_if(kSchemes.begin(), kSchemes.end(),
                                      [&](const Scheme& s) { return name == s.server; });
  if (at != kSchemes.end()) return {{}, std::string(at->scheme) + user};
  if (isScheme(name) && lowerASCII(name.view()) == name.view() && serverOfScheme(name) == nullptr) {
    return {{}, name.str() + user};
  }
  Spelled with{{}, "x-" + lettersOf(name) + user};
  appendParameter(with.parameters, "X-SERVICE-TYPE", {name.view()});
  return with;
}

std::string parametersOfService(const Line& line) {
  std::string parameters;
  for (const Parameter& parameter : line.parameters()) {
    if (isServiceType(parameter.name)) appendParameter(parameters, parameter);
  }
  return parameters;
}

}  // namespace

Fit readAccount(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  std::string_view rest = line.text();
  if (rest.empty()) return Fit::Nothing;
  std::string scheme;
  if (const std::size_t colon = rest.find(':');
      colon != std::string_view::npos && isScheme(rest.substr(0, colon))) {
    scheme = lowerASCII(rest.substr(0, colon));
    rest.remove_prefix(colon + 1);
  }
  OVRef<OVInstantMessageServer> server;
  if (const std::string_view type = serviceType(line); !type.empty()) {
    server = serverOfType(type);
  } else {
    server = serverOfScheme(scheme);
    if (server == nullptr) {
      server = OVInstantMessageServer::serverWithName(scheme.empty() ? OVString() : scheme);
    }
  }
  const auto account =
      OVObjectInstantMessage::initWithUserNameServer(percentDecoded(userOf(rest, scheme)), server);
  const Fit fit = reading.add(line, binding, account);
  const Spelled usual = spelled(*account);
  const bool isUsual = line.name() == "IMPP" && usual.value == line.value() &&
                       usual.parameters == parametersOfService(line);
  return isUsual ? fit : Fit::Unusual;
}

bool isServiceProperty(std::string_view name) {
  return name.starts_with("X-") && serverOfScheme(name.substr(2)) != nullptr;
}

Fit readServiceAccount(const Line& line, const Binding& binding, PersonReading& reading) {
  if (line.isBase64()) return Fit::Other;
  if (line.text().empty()) return Fit::Nothing;
  const OVRef<OVInstantMessageServer> server = serverOfScheme(line.name().substr(2));
  return reading.add(line, binding,
                     OVObjectInstantMessage::initWithUserNameServer(line.text(), server));
}

bool spellAccount(const Binding& /*binding*/, const PersonValues& /*values*/,
                  const OVSingleValue* entry, Spelling& spelling) {
  const auto account = ov::cast<OVObjectInstantMessage>(entry->value());
  if (account == nullptr) return false;
  Spelled line = spelled(*account);
  spelling.parameters = std::move(line.parameters);
  spelling.value = std::move(line.value);
  return true;
}

}  // namespace ov::card
