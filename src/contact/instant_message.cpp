#include <OVAddressBookSDK/instant_message.h>

#include <string_view>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/maker.h"

namespace {

constexpr std::string_view kUserNameKey = "userName";
constexpr std::string_view kServerNameKey = "serverName";

}  // namespace

OVRef<OVObjectInstantMessage> OVObjectInstantMessage::initWithUserNameServer(
    OVString userName, OVRef<OVInstantMessageServer> server) {
  auto account = ov::detail::Maker::make<OVObjectInstantMessage>();
  account->userName_ = std::move(userName);
  account->server_ = std::move(server);
  return account;
}

const OVClass& OVObjectInstantMessage::archivedClass() {
  static constexpr OVClass record{"OVObjectInstantMessage", nullptr,
                                  &ov::detail::Maker::empty<OVObjectInstantMessage>};
  return record;
}

const OVClass* OVObjectInstantMessage::classForCoder() const { return &archivedClass(); }

// A service is known by its name alone, which is looked up again when the account is read.
void OVObjectInstantMessage::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (userName_) coder.encodeObjectForKey(userName_, kUserNameKey);
  if (server_ != nullptr) coder.encodeObjectForKey(server_->name(), kServerNameKey);
}

void OVObjectInstantMessage::initWithCoder(OVKeyedUnarchiver& coder) {
  userName_ = coder.decodeStringForKey(kUserNameKey);
  server_ = OVInstantMessageServer::serverWithName(coder.decodeStringForKey(kServerNameKey));
}
