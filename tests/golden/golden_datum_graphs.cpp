#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "golden/golden_graphs.h"
#include "support/archive/archived_fields.h"

// What values hold: all fields set, some not set, none set.

namespace {

using Any = OVList<OVObject>;

/// What a program made of an archive whose object lacks every field.
OVRef<OVObject> bare(const char* className) { return restored(archivedAs(className, {})); }

OVRef<OVObject> personNames() {
  return Any::list({OVObjectPersonName::initWithFirstMiddleLast("Ada", "King", "Lovelace"),
                    OVObjectPersonName::initWithFirstMiddleLast("明", nullptr, "黒澤"),
                    bare("OVObjectPersonName")});
}

OVRef<OVObject> phones() {
  return Any::list({OVObjectPhone::initWithPhoneNumber("+44 (20) 7946-0018"),
                    OVObjectPhone::initWithPhoneNumber("no number"),
                    OVObjectPhone::initWithPhoneNumber(""), bare("OVObjectPhone")});
}

OVRef<OVObject> emails() {
  return Any::list({OVObjectEmail::initWithEmail("ada@example.org"),
                    OVObjectEmail::initWithEmail("größe@exämple.org"),
                    OVObjectEmail::initWithEmail("no address"), bare("OVObjectEmail")});
}

OVRef<OVObject> accounts() {
  const auto other = OVInstantMessageServer::serverWithDisplayName("Other Chat");
  return Any::list({goldenAccount(), OVObjectInstantMessage::initWithUserNameServer("ada", other),
                    OVObjectInstantMessage::initWithUserNameServer(
                        nullptr, OVInstantMessageServer::serverWithName("SkypeInstant"))});
}

OVRef<OVObject> addresses() {
  const auto city = OVObjectAddress::init();
  city->setStringValueForFieldName("Görlitz", OVAddressFieldCity);
  const auto country = OVObjectAddress::init();
  country->setCountryCode("jp");
  return Any::list(
      {goldenAddress(), city, country, OVObjectAddress::init(), bare("OVObjectAddress")});
}

OVRef<OVObject> images() { return Any::list({goldenImage(), bare("OVImage")}); }

}  // namespace

OVRef<OVObjectAddress> goldenAddress() {
  auto address = OVObjectAddress::init();
  address->setCountryCode("gb");
  address->setStringValueForFieldName("United Kingdom", OVAddressFieldCountryOrArea);
  address->setStringValueForFieldName("Greater London", OVAddressFieldProvince);
  address->setStringValueForFieldName("London", OVAddressFieldCity);
  address->setStringValueForFieldName("12 St James's Square\nFlat 3", OVAddressFieldStreet);
  address->setStringValueForFieldName("SW1Y 4JH", OVAddressFieldPostalCode);
  return address;
}

OVRef<OVObjectInstantMessage> goldenAccount() {
  return OVObjectInstantMessage::initWithUserNameServer(
      "ada", OVInstantMessageServer::serverWithName("JabberInstant"));
}

OVRef<OVImage> goldenImage() {
  return OVImage::imageWithData(OVData::dataWithText(
      {"GIF89a\x01\0\x01\0\x80\0\0\xFF\xFF\xFF\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0;",
       35}));
}

std::vector<GoldenGraph> goldenDatumGraphs() {
  return {{"person_names", personNames}, {"phones", phones},       {"emails", emails},
          {"accounts", accounts},        {"addresses", addresses}, {"images", images}};
}
