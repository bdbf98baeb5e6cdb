// Whether somebody has changed is found out by writing the card and comparing it with the one that
// the service has. That need not be the card that was read: `originals` has those that were put
// into another form.

#include "book_content.h"

#include "mapping/others.h"
#include "mapping/person_card.h"
#include "mapping/reading.h"
#include "memory/renewal.h"
#include "photo_file.h"
#include "same_card.h"

namespace ov::eds {

namespace {

using ov::card::CardSource;
using ov::card::Version;

const CardSource& sourceOf(const BookContent::Entry& entry) {
  return entry.person != nullptr ? entry.person->source() : entry.group.group->source;
}

/// The lines of the service's own that are kept in "Other" are those of the new card.
void takeOwnLines(ov::card::Person& person, const std::string& card) {
  const ov::card::CardText text{card};
  ov::card::LabelReader labels;
  const ov::card::PersonReading reading(text.lines(), labels);
  const auto nameOf = [](const OVRef<OVSingleValue>& entry) {
    const auto label = entry == nullptr ? nullptr : entry->label();
    const std::string name = label == nullptr ? "" : label->name().str();
    return name.substr(0, name.find(';'));
  };
  const auto before = ov::cast<OVMultipleValue>(person.valueByPropertyName(OVProPertyOther));
  const auto others = OVMutableMultipleValue::init();
  for (std::uint64_t i = 0; before != nullptr && i < before->count(); ++i) {
    const auto entry = before->valueAtIndex(i);
    if (!isOwnLine(nameOf(entry))) others->addValue(entry);
  }
  for (const auto& entry : reading.entries(OVProPertyOther)) {
    if (isOwnLine(nameOf(entry))) others->addValue(entry);
  }
  if (others->count() > 0) person.setValueByPropertyName(others, OVProPertyOther);
}

std::string idOf(const BookContent::Entry& entry) {
  return entry.person != nullptr ? entry.person->ID().str() : entry.group.group->id.str();
}

}  // namespace

std::string_view BookContent::baseOf(const Entry& entry) const {
  const auto at = originals.find(idOf(entry));
  return at != originals.end() ? std::string_view(at->second) : sourceOf(entry).card;
}

std::string_view BookContent::baseOf(const std::string& uid) const {
  const Entry* const entry = store->find(uid);
  return entry == nullptr ? std::string_view() : baseOf(*entry);
}

std::string BookContent::cardOf(const Entry& entry) const {
  const std::string_view base = baseOf(entry);
  std::string card;
  if (entry.person != nullptr) {
    if (base.empty()) {
      ov::card::writePerson(*entry.person, entry.person->ID(), card, Version::V3_0);
      return card;
    }
    entry.person->write(card);
    const std::string_view readable = entry.person->source().card;
    return base == readable ? card : withPhotoName(std::move(card), readable, base);
  }
  const auto find = [this](const OVString& id) { return findMember(id); };
  const ov::card::Group& group = *entry.group.group;
  if (base.empty()) return newList(group.content(), find);
  if (base != group.source.card) return changedList(base, group.content(), find);
  group.write(card);
  return card;
}

bool BookContent::isChanged(const Entry& entry) const {
  const std::string_view base = baseOf(entry);
  if (base.empty()) return true;
  if (entry.person != nullptr && entry.person->isAsItCame()) return false;
  return cardOf(entry) != base;
}

std::string BookContent::readable(const std::string& uid, std::string card) {
  auto read = groupOfList(card);
  if (!read) read = withPhoto(card);
  if (!read) {
    originals.erase(uid);
    return card;
  }
  originals[uid] = std::move(card);
  return std::move(*read);
}

void BookContent::adopt(const Entry& entry, const std::string& card) {
  const std::string uid = idOf(entry);
  const auto text = std::make_shared<const std::string>(readable(uid, card));
  const CardSource source{text, *text};
  if (entry.person != nullptr && entry.person->isAsItCame()) {
    ov::card::renewPerson(*entry.person, text);
  } else if (entry.person != nullptr) {
    takeOwnLines(*entry.person, *text);
    entry.person->setSource(source, entry.person->ID());
  } else {
    entry.group.group->source = source;
    entry.group.group->sourceID = entry.group.group->id;
  }
}

std::optional<Member> BookContent::findMember(const OVString& id) const {
  const Entry* const entry = store->find(id);
  if (entry == nullptr) return std::nullopt;
  if (entry->person == nullptr) return Member{entry->group.group->name.str(), {}};
  const auto email = entry->person->mainEmail();
  const std::string address =
      email == nullptr || email->email().isNull() ? std::string() : email->email().str();
  return Member{entry->person->showName().str(), address};
}

}  // namespace ov::eds
