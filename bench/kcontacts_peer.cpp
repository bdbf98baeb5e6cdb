#include <KContacts/Address>
#include <KContacts/Addressee>
#include <KContacts/PhoneNumber>
#include <KContacts/VCardConverter>

#include "sample_persons.h"
#include "vcard_peer.h"

namespace bench {

namespace {

KContacts::Addressee::List held;

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

KContacts::Addressee addresseeOf(const SamplePerson& person) {
  using KContacts::PhoneNumber;
  KContacts::Addressee addressee;
  addressee.setUid(text(person.id));
  addressee.setGivenName(text(person.first));
  addressee.setAdditionalName(text(person.middle));
  addressee.setFamilyName(text(person.last));
  addressee.setFormattedName(text(person.first + " " + person.middle + " " + person.last));
  addressee.insertPhoneNumber(PhoneNumber(text(person.phones[0]), PhoneNumber::Cell));
  addressee.insertPhoneNumber(PhoneNumber(text(person.phones[1]), PhoneNumber::Work));
  addressee.setEmails({text(person.emails[0]), text(person.emails[1])});
  KContacts::Address address(KContacts::Address::Home);
  address.setStreet(text(person.street));
  address.setLocality(text(person.city));
  address.setRegion(text(person.province));
  address.setPostalCode(text(person.postalCode));
  address.setCountry(text(person.countryCode));
  addressee.insertAddress(address);
  addressee.setOrganization(text(person.company));
  addressee.setTitle(text(person.jobTitle));
  addressee.setBirthday(QDate(person.birthYear, static_cast<int>(person.birthMonth),
                              static_cast<int>(person.birthDay)));
  addressee.setNote(text(person.note));
  return addressee;
}

}  // namespace

const char* peerName() { return "KContacts (vCard)"; }

std::string writeCards(std::uint32_t persons) {
  KContacts::Addressee::List list;
  for (std::uint32_t i = 0; i < persons; ++i) list.append(addresseeOf(samplePerson(i)));
  return KContacts::VCardConverter().createVCards(list).toStdString();
}

std::size_t readCards(const std::string& cards) {
  held = KContacts::VCardConverter().parseVCards(QByteArray::fromStdString(cards));
  return static_cast<std::size_t>(held.size());
}

void forgetCards() { held.clear(); }

}  // namespace bench
