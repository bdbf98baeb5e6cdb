// A person's place is a string of bytes, made once: the locale's collation keys of what the person
// is sorted by. All keys are in one text, and most comparisons need only their first eight bytes.

#include <OVAddressBookSDK/person_sorter.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/person_name.h>

#include "book/person_texts.h"
#include "platform/services/name_order.h"

using ov::detail::firstDatum;
using ov::detail::listedProperties;

namespace {

// What a key begins with, so that who has nothing to be ordered by comes last.
constexpr char kSomething = '\x01';
constexpr char kNothing = '\x02';
// Parts on either side of it are ordered one after the other.
constexpr std::string_view kNextPart = "\uFFFE";

/// The places of the persons, by keys in one text.
class Keys {
 public:
  explicit Keys(std::size_t count) { places_.reserve(count); }

  void add(std::string_view key) {
    places_.push_back({beginning(key), text_.size(), key.size(), places_.size()});
    text_.append(key);
  }
  [[nodiscard]] std::vector<std::size_t> sorted() {
    std::ranges::sort(places_, [this](const Place& a, const Place& b) { return isLess(a, b); });
    std::vector<std::size_t> order;
    order.reserve(places_.size());
    for (const Place& place : places_) order.push_back(place.person);
    return order;
  }

 private:
  struct Place {
    std::uint64_t beginning;
    std::size_t start;
    std::size_t size;
    std::size_t person;
  };

  /// The first bytes as a number: most keys differ in them.
  static std::uint64_t beginning(std::string_view key) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i) {
      number = number << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    return number;
  }
  [[nodiscard]] bool isLess(const Place& a, const Place& b) const {
    if (a.beginning != b.beginning) return a.beginning < b.beginning;
    const std::string_view all = text_;
    const int order = all.substr(a.start, a.size).compare(all.substr(b.start, b.size));
    return order != 0 ? order < 0 : a.person < b.person;
  }

  std::string text_;
  std::vector<Place> places_;
};

void appendPart(std::string& text, const OVString& part) {
  if (part.empty()) return;
  if (!text.empty()) text.append(kNextPart);
  text.append(part.view());
}

}  // namespace

OVPersonSorter::OVPersonSorter(OVPersonOrder order)
    : order_(order), lastNameInFront_(ov::lastNameInFront()), locale_(OVLocale::currentLocale()) {}

OVString OVPersonSorter::nameOf(const IOVPerson& person) const {
  const auto& properties = listedProperties();
  const auto name = firstDatum<OVObjectPersonName>(person, properties.name);
  if (name == nullptr || ov::isOrganization(person)) return ov::headingOf(person).main;
  const auto heard = [&](const OVRef<OVProperty>& phonetic, const OVString& written) {
    const OVString text = firstDatum<OVString>(person, phonetic);
    return text.empty() ? written : text;
  };
  const OVString first = heard(properties.firstPhonetic, name->first());
  const OVString last = heard(properties.lastPhonetic, name->last());
  std::string text;
  appendPart(text, lastNameInFront_ ? last : first);
  if (!lastNameInFront_) appendPart(text, name->middle());
  appendPart(text, lastNameInFront_ ? first : last);
  if (lastNameInFront_) appendPart(text, name->middle());
  return text.empty() ? ov::headingOf(person).main : OVString(text);
}

std::string OVPersonSorter::keyOf(const IOVPerson& person) const {
  if (order_ == OVPersonOrder::None) return {};
  const OVString name = nameOf(person);
  const OVString company = order_ == OVPersonOrder::Company
                               ? firstDatum<OVString>(person, listedProperties().company)
                               : OVString();
  if (company.empty()) {
    const bool hasKey = order_ == OVPersonOrder::Name && !name.empty();
    return (hasKey ? kSomething : kNothing) + (name.empty() ? "\xFF" : locale_->sortKey(name));
  }
  return kSomething + locale_->sortKey(company) + '\0' + locale_->sortKey(name);
}

void OVPersonSorter::sort(std::vector<OVRef<IOVPerson>>& persons) const {
  if (order_ == OVPersonOrder::None) return;
  Keys keys(persons.size());
  for (const auto& person : persons) keys.add(person == nullptr ? "\xFF" : keyOf(*person));
  std::vector<OVRef<IOVPerson>> sorted;
  sorted.reserve(persons.size());
  for (const std::size_t place : keys.sorted()) sorted.push_back(persons[place]);
  persons.swap(sorted);
}
