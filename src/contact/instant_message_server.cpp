#include <array>
#include <utility>

#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/locale.h>

#include "platform/built_once.h"
#include "platform/maker.h"

namespace {

struct Row {
  const ov::detail::TextConstant* name;
  const ov::detail::TextConstant* displayName;
};

template <ov::detail::Literal Name, ov::detail::Literal DisplayName>
constexpr Row row() {
  return {&ov::detail::kConstant<Name>, &ov::detail::kConstant<DisplayName>};
}

// The names are stored in archives: never change one.
constexpr std::array kRows{
    row<"AIMInstant", "AIM">(),
    row<"FacebookInstant", "Facebook">(),
    row<"GaduGaduInstant", "Gadu-Gadu">(),
    row<"GoogleTalkInstant", "Google Talk">(),
    row<"ICQInstant", "ICQ">(),
    row<"JabberInstant", "Jabber">(),
    row<"MSNInstant", "MSN">(),
    row<"QQInstant", "QQ">(),
    row<"SkypeInstant", "Skype">(),
    row<"YahooInstant", "Yahoo">(),
};

struct Services {
  OVList<OVInstantMessageServer> list = OVList<OVInstantMessageServer>::list();
  OVDictionary<OVInstantMessageServer> byName = OVDictionary<OVInstantMessageServer>::dictionary();
};

constinit ov::detail::BuiltOnce<Services> servicesOnce;

OVRef<OVInstantMessageServer> make(OVString name, OVString displayName) {
  return ov::detail::Maker::make<OVInstantMessageServer>(std::move(name), std::move(displayName));
}

Services buildServices() {
  Services services;
  for (const Row& row : kRows) {
    const auto server = make(OVString(*row.name), OVString(*row.displayName));
    services.list.push_back(server);
    services.byName.set(server->name(), server);
  }
  return services;
}

}  // namespace

OVInstantMessageServer::OVInstantMessageServer(OVString name, OVString displayName)
    : name_(std::move(name)), displayName_(std::move(displayName)) {}

OVInstantMessageServer::OVInstantMessageServer(ov::detail::TextField name)
    : name_(std::move(name)) {}

OVRef<OVInstantMessageServer> OVInstantMessageServer::serverWithStoredName(
    ov::detail::TextField name) {
  const OVString& text = name.text();
  if (!text.isNull() || name.isEmpty()) return serverWithName(text);
  return ov::detail::Maker::make<OVInstantMessageServer>(std::move(name));
}

OVList<const OVInstantMessageServer> OVInstantMessageServer::supportServer() {
  return servicesOnce.get(buildServices).list;
}

OVDictionary<const OVInstantMessageServer> OVInstantMessageServer::StandardServerDictionary() {
  return servicesOnce.get(buildServices).byName;
}

OVRef<OVInstantMessageServer> OVInstantMessageServer::serverWithName(const OVStringView& name) {
  if (auto server = servicesOnce.get(buildServices).byName[name]) return server;
  const OVString unknown(name);
  return make(unknown, unknown);
}

OVRef<OVInstantMessageServer> OVInstantMessageServer::serverWithDisplayName(
    const OVStringView& displayName) {
  const OVString wanted(displayName);
  // Reads the table as it is: only others build it.
  const Services* services = servicesOnce.peek();
  if (services == nullptr) return make(wanted, wanted);
  const auto locale = OVLocale::currentLocale();
  const OVString lower = locale->lowercase(wanted);
  for (const auto& server : services->list)
    if (server != nullptr && locale->lowercase(server->displayName()) == lower) return server;
  return make(wanted, wanted);
}
