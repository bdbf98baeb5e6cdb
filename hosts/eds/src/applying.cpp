// What others did is gathered card by card; `finish` then has everybody come and go at once, so
// that groups find members that arrive together.

#include "applying.h"

#include <algorithm>

#include "mapping/others.h"
#include "mapping/reading.h"
#include "memory/renewal.h"
#include "notices.h"
#include "same_card.h"

namespace ov::eds {

namespace {

using ov::card::CardText;
using ov::card::Group;
using ov::card::Person;
using ov::card::Store;

bool isGroupCard(const std::string& readable) {
  const CardText text{readable};
  const auto& lines = text.lines();
  return std::any_of(lines.begin(), lines.end(), ov::card::saysGroup);
}

}  // namespace

void Applier::come(const std::string& uid, const std::string& card) {
  const Entry* const entry = book_.store->find(uid);
  if (entry == nullptr) {
    const auto removal = book_.removed.find(uid);
    if (removal == book_.removed.end()) return become(uid, card);
    if (sayTheSame(removal->second, card)) return;
    book_.conflicts.push_back(
        {OVString(uid), groupOfList(card).has_value(), true, false, nullptr, OVString(card)});
    book_.removed.erase(removal);
    return become(uid, card);
  }
  const std::string base(book_.baseOf(*entry));
  const std::string ours = base.empty() ? book_.cardOf(*entry) : std::string();
  const bool isSame =
      base.empty() ? sayTheSame(ours, card, Photos::Ignored) : sayTheSame(base, card);
  if (isSame) {
    if (base != card) book_.adopt(*entry, card);
    return;
  }
  if (book_.isChanged(*entry)) {
    book_.conflicts.push_back({OVString(uid), entry->person == nullptr, false, false,
                               OVString(book_.cardOf(*entry)), OVString(card)});
  }
  become(uid, card);
}

void Applier::become(const std::string& uid, const std::string& card) {
  const Entry* const entry = book_.store->find(uid);
  if (entry == nullptr) {
    newUIDs_.push_back(uid);
    newCards_.push_back(card);
    return;
  }
  const auto text = std::make_shared<const std::string>(book_.readable(uid, card));
  if (isGroupCard(*text) == (entry->person != nullptr)) {  // it was of the other kind before
    book_.originals.erase(uid);
    leave(*entry, uid);
    newUIDs_.push_back(uid);
    newCards_.push_back(card);
  } else if (entry->person != nullptr) {
    const PersonBefore before(*entry->person);
    ov::card::renewPerson(*entry->person, text);
    before.tell(entry->person, book_.notices);
    book_.applied.changed.push_back(entry->person);
  } else {
    renewals_.push_back({entry->group.group, text});
    book_.applied.groupsChanged.push_back(entry->group.object);
  }
}

void Applier::go(const std::string& uid) {
  book_.removed.erase(uid);
  const Entry* const entry = book_.store->find(uid);
  if (entry == nullptr || book_.baseOf(*entry).empty()) return;
  if (book_.isChanged(*entry)) {
    book_.conflicts.push_back({OVString(uid), entry->person == nullptr, false, true,
                               OVString(book_.cardOf(*entry)), nullptr});
  }
  leave(*entry, uid);
}

void Applier::leave(const Entry& entry, const std::string& uid) {
  if (entry.person != nullptr) {
    leaving_.insert(entry.person.get());
    book_.applied.went.push_back(entry.person);
  } else {
    leavingGroups_.push_back(entry.group.group);
    book_.applied.groupsWent.push_back(entry.group.object);
  }
  book_.originals.erase(uid);
}

/// A list that names somebody who went still does, until the list itself is changed.
void Applier::keepAsMissing() {
  for (const Store::GroupPlace& place : book_.store->groups) {
    Group& group = *place.group;
    bool misses = false;
    for (const OVRef<Person>& person : group.persons) {
      if (!leaving_.contains(person.get())) continue;
      group.missing.push_back({person->ID(), group.place});
      misses = true;
    }
    for (const auto& weak : group.subGroups) {
      const auto sub = weak.lock();
      if (std::find(leavingGroups_.begin(), leavingGroups_.end(), sub) == leavingGroups_.end()) {
        continue;
      }
      group.missing.push_back({sub->id, group.place});
      misses = true;
    }
    if (misses) renewals_.push_back({place.group, nullptr});
  }
}

void Applier::finish() {
  if (!leaving_.empty() || !leavingGroups_.empty()) {
    keepAsMissing();
    book_.store->removePersons(leaving_);
    for (const auto& group : leavingGroups_) book_.store->removeGroup(group);
  }
  if (!newCards_.empty() || !renewals_.empty()) {
    arrive(book_, std::move(newCards_), renewals_);
    for (const std::string& uid : newUIDs_) {
      const Entry* const entry = book_.store->find(uid);
      if (entry == nullptr) continue;
      if (entry->person != nullptr) {
        book_.applied.cameIn.push_back(entry->person);
      } else {
        book_.applied.groupsCameIn.push_back(entry->group.object);
      }
    }
  }
}

}  // namespace ov::eds
