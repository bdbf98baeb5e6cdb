#include <libebook-contacts/libebook-contacts.h>

#include <memory>
#include <vector>

#include "sample_persons.h"
#include "vcard_peer.h"

namespace bench {

namespace {

struct Unreference {
  void operator()(EVCard* card) const { g_object_unref(card); }
};
using Card = std::unique_ptr<EVCard, Unreference>;

std::vector<Card> held;

void add(EVCard* card, const char* name, const char* type,
         std::initializer_list<std::string> values) {
  EVCardAttribute* attribute = e_vcard_attribute_new(nullptr, name);
  if (type != nullptr) {
    e_vcard_attribute_add_param_with_value(attribute, e_vcard_attribute_param_new(EVC_TYPE), type);
  }
  for (const std::string& value : values) e_vcard_attribute_add_value(attribute, value.c_str());
  e_vcard_append_attribute(card, attribute);
}

Card cardOf(const SamplePerson& person) {
  Card card(e_vcard_new());
  add(card.get(), EVC_UID, nullptr, {person.id});
  add(card.get(), EVC_N, nullptr, {person.last, person.first, person.middle, "", ""});
  add(card.get(), EVC_FN, nullptr, {person.first + " " + person.middle + " " + person.last});
  add(card.get(), EVC_TEL, "CELL", {person.phones[0]});
  add(card.get(), EVC_TEL, "WORK", {person.phones[1]});
  add(card.get(), EVC_EMAIL, "HOME", {person.emails[0]});
  add(card.get(), EVC_EMAIL, "WORK", {person.emails[1]});
  add(card.get(), EVC_ADR, "HOME",
      {"", "", person.street, person.city, person.province, person.postalCode, person.countryCode});
  add(card.get(), EVC_ORG, nullptr, {person.company});
  add(card.get(), EVC_TITLE, nullptr, {person.jobTitle});
  add(card.get(), EVC_BDAY, nullptr,
      {std::to_string(person.birthYear) + "-" + std::to_string(person.birthMonth) + "-" +
       std::to_string(person.birthDay)});
  add(card.get(), EVC_NOTE, nullptr, {person.note});
  return card;
}

}  // namespace

const char* peerName() { return "libebook-contacts (vCard)"; }

std::string writeCards(std::uint32_t persons) {
  std::string cards;
  for (std::uint32_t i = 0; i < persons; ++i) {
    const Card card = cardOf(samplePerson(i));
    const std::unique_ptr<char, decltype(&g_free)> text(
        e_vcard_to_string(card.get(), EVC_FORMAT_VCARD_30), &g_free);
    cards.append(text.get()).append("\n");
  }
  return cards;
}

std::size_t readCards(const std::string& cards) {
  // Printing what it complains of would take longer than reading.
  g_log_set_default_handler([](const char*, GLogLevelFlags, const char*, void*) {}, nullptr);
  constexpr std::string_view kEnd = "END:VCARD";
  for (std::size_t at = 0, end = 0; (end = cards.find(kEnd, at)) != std::string::npos;) {
    end += kEnd.size();
    at = cards.find_first_not_of("\r\n", at);
    held.emplace_back(e_vcard_new_from_string(cards.substr(at, end - at).c_str()));
    // A card is taken apart when it is first asked for something.
    e_vcard_get_attributes(held.back().get());
    at = end;
  }
  return held.size();
}

void forgetCards() { held.clear(); }

}  // namespace bench
