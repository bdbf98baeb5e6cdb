#include <OVAddressBookSDK/instant_message.h>

#include <string_view>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>

#include "platform/maker.h"

using ov::detail::TextField;

namespace {

constexpr std::string_view kUserNameKey = "userName";
constexpr std::string_view kServerNameKey = "serverName";

}  // namespace

OVObjectInstantMessage::OVObjectInstantMessage(OVString userName,
                                               OVRef<OVInstantMessageServer> server)
    : userName_(std::move(userName)), server_(std::move(server)) {}

OVRef<OVObjectInstantMessage> OVObjectInstantMessage::initWithUserNameServer(
    OVString userName, OVRef<OVInstantMessageServer> server) {
  return ov::detail::Maker::make<OVObjectInstantMessage>(std::move(userName), std::move(server));
}

const OVClass& OVObjectInstantMessage::archivedClass() {
  static constexpr OVClass record{"OVObjectInstantMessage", nullptr,
                                  &ov::detail::Maker::empty<OVObjectInstantMessage>};
  return record;
}

const OVClass* OVObjectInstantMessage::classForCoder() const { return &archivedClass(); }

// A service is known by its name alone, which is looked up again when the account is read.
void OVObjectInstantMessage::encodeWithCoder(OVKeyedArchiver& coder) const {
  userName_.encode(coder, kUserNameKey);
  if (server_ == nullptr) return;
  if (server_->name_.isEmpty()) {
    coder.encodeObjectForKey(OVString(), kServerNameKey);
  } else {
    server_->name_.encode(coder, kServerNameKey);
  }
}

void OVObjectInstantMessage::initWithCoder(OVKeyedUnarchiver& coder) {
  userName_ = TextField::decoded(coder, kUserNameKey);
  server_ = OVInstantMessageServer::serverWithStoredName(
      TextField::decodedToBeSearched(coder, kServerNameKey));
}
