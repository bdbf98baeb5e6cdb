// Carries out what the program decides about a conflict. The book shows theirs; ours is a card that
// becomes a change, or a person or group of its own.

#include <algorithm>

#include <OVAddressBookEDS/eds_book.h>

#include "arriving.h"
#include "book_content.h"
#include "codec/escapes.h"
#include "codec/line_writer.h"
#include "mapping/others.h"
#include "mapping/patch.h"
#include "memory/card_id.h"
#include "memory/renewal.h"

namespace ov::eds {

namespace {

using ov::card::Store;

std::string withUID(const std::string& card, const OVString& uid) {
  const ov::card::CardText text{card};
  if (text.card() == nullptr) return card;
  std::string line;
  ov::card::LineWriter(line, text.card()->version, text.card()->lineEnd)
      .line({{}, "UID", {}}, ov::card::escapeText(uid));
  ov::card::Patch patch(*text.card());
  std::size_t place = 0;
  for (std::size_t i = 0; i < text.lines().size(); ++i) {
    if (text.lines()[i].name() != "UID") continue;
    patch.drop(i);
    place = i;
  }
  patch.insert(place, line);
  std::string out;
  patch.write(out);
  return out;
}

/// Adds a card as a person or group that the service does not know yet.
void addAsNew(BookContent& book, const OVString& uid, const std::string& card) {
  arrive(book, {withUID(card, uid)});
  book.originals.erase(uid.str());
  const Store::Entry* const entry = book.store->find(uid);
  if (entry == nullptr) return;
  if (entry->person != nullptr) {
    entry->person->setSource({}, nullptr);
  } else {
    entry->group.group->source = {};
    entry->group.group->sourceID = nullptr;
  }
}

/// Says what the card says, as a change of what the service has.
void changeInto(BookContent& book, const Store::Entry& entry, const std::string& uid,
                const std::string& card) {
  const std::string base(book.baseOf(entry));
  const auto ours = std::make_shared<const std::string>(book.readable(uid, card));
  if (entry.person != nullptr) {
    ov::card::renewPerson(*entry.person, ours);
    // Looked at from outside, so that it counts as changed.
    (void)std::as_const(*entry.person).valueByPropertyName(OVProPertyName);
  } else {
    arrive(book, {}, {{entry.group.group, ours}});
  }
  book.adopt(entry, base);
}

void removeAgain(BookContent& book, const Store::Entry& entry, const std::string& uid) {
  book.removed.emplace(uid, book.baseOf(entry));
  book.originals.erase(uid);
  if (entry.person != nullptr) {
    book.store->removePersons({entry.person.get()});
  } else {
    book.store->removeGroup(entry.group.group);
  }
}

void takeOurs(BookContent& book, const OVEDSConflict& conflict) {
  const Store::Entry* const found = book.store->find(conflict.ID);
  if (found == nullptr) {
    if (!conflict.weRemoved) addAsNew(book, conflict.ID, conflict.ourCard.str());
    return;
  }
  const Store::Entry entry = *found;
  if (conflict.weRemoved) {
    removeAgain(book, entry, conflict.ID.str());
  } else {
    changeInto(book, entry, conflict.ID.str(), conflict.ourCard.str());
  }
}

}  // namespace

}  // namespace ov::eds

bool OVEDSBook::resolve(const OVString& conflictID, OVEDSResolution resolution) {
  auto& conflicts = content_->conflicts;
  const auto at = std::find_if(conflicts.begin(), conflicts.end(),
                               [&](const OVEDSConflict& each) { return each.ID == conflictID; });
  if (at == conflicts.end()) return false;
  const OVEDSConflict conflict = *at;
  conflicts.erase(at);
  if (resolution == OVEDSResolution::Ours) ov::eds::takeOurs(*content_, conflict);
  if (resolution == OVEDSResolution::Both && !conflict.weRemoved) {
    ov::eds::addAsNew(*content_, ov::card::randomID(), conflict.ourCard.str());
  }
  return true;
}
