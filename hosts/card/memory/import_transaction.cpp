// Imports the cards of a file, all or none. What may fail is done first, on copies and in reserved
// memory; `commit` then only moves, and cannot fail.

#include "import_transaction.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "card_id.h"
#include "mapping/group_card.h"
#include "mapping/others.h"
#include "membership.h"
#include "renewal.h"

namespace ov::card {

namespace {

/// What the card of a person or group says, as `contentID`; "" for one that came from no card.
std::string contentOf(const Store::Entry& entry) {
  const CardSource& source =
      entry.person != nullptr ? entry.person->source() : entry.group.group->source;
  if (source.card.empty()) return {};
  return contentID(CardText(std::string(source.card)).lines());
}

}  // namespace

ImportTransaction::ImportTransaction(Store& book, OVString origin,
                                     std::shared_ptr<const std::string> text, Problems& problems)
    : book_(book),
      origin_(std::move(origin)),
      text_(std::move(text)),
      problems_(problems),
      nextOrder_(book.nextOrder) {}

ImportTransaction::~ImportTransaction() {
  if (isCommitted_) return;
  forgetTags();
  while (!wishes_.empty()) {
    const Wish& wish = wishes_.back();
    wish.wanted->lastNumber = wish.lastNumber;
    wish.wanted->idsByContent.erase(wish.content);
    if (wish.isFirst) book_.wantedIDs.erase(wish.id);
    wishes_.pop_back();
  }
}

const Store::Entry* ImportTransaction::find(std::string_view id) const {
  const auto at = byID_.find(id);
  return at != byID_.end() ? &at->second : book_.find(id);
}

void ImportTransaction::reserve(std::size_t count) {
  persons_.reserve(count);
  byID_.reserve(count);
}

void ImportTransaction::add(const Card& card) {
  if (!addGroupOrNothing(card)) addPerson(card);
}

void ImportTransaction::addUnread(const Card& card) {
  if (addGroupOrNothing(card)) return;
  const OVString uid = uidOf(card.lines);
  const OVString id = idFor(card, uid);
  if (id.isNull()) return;
  keep(std::make_shared<Person>(id, sourceOf(card), uid, book_.weak_from_this()));
}

bool ImportTransaction::addUnread(const OVString& uid, CardSource source) {
  if (book_.find(uid) != nullptr) return false;
  return keep(std::make_shared<Person>(uid, std::move(source), uid, book_.weak_from_this()));
}

bool ImportTransaction::addGroupOrNothing(const Card& card) {
  if (card.lines.empty()) {
    problems_.error(card.number, "this card is empty");
    return true;
  }
  if (std::none_of(card.lines.begin(), card.lines.end(), saysGroup)) return false;
  addGroup(card);
  return true;
}

Store::WantedID& ImportTransaction::wishFor(const OVString& id) {
  const auto known = book_.wantedIDs.find(id.view());
  if (known != book_.wantedIDs.end()) return known->second;
  Wish wish{nullptr, 1, contentOf(*find(id)), id.str(), true};
  wishes_.reserve(wishes_.size() + 1);
  Store::WantedID& wanted = book_.wantedIDs[wish.id];
  wish.wanted = &wanted;
  wishes_.push_back(std::move(wish));
  if (const std::string& content = wishes_.back().content; !content.empty()) {
    wanted.idsByContent.emplace(content, id);
  }
  return wanted;
}

OVString ImportTransaction::idFor(const Card& card, const OVString& given) {
  OVString id = given.isNull() ? OVString(contentID(card.lines)) : given;
  if (find(id) == nullptr) return id;
  Store::WantedID& wanted = wishFor(id);
  const std::string content = contentID(card.lines);
  const auto known = wanted.idsByContent.find(content);
  if (known != wanted.idsByContent.end() && find(known->second) != nullptr) {
    problems_.warning(card.number, "this card repeats another one and was left out");
    return nullptr;
  }
  wishes_.push_back({&wanted, wanted.lastNumber, content, {}, false});
  std::string numbered;
  do {
    numbered = id.str() + "-" + std::to_string(++wanted.lastNumber);
  } while (find(numbered) != nullptr);
  OVString free(numbered);
  wanted.idsByContent.insert_or_assign(content, free);
  problems_.warning(card.number,
                    "the UID " + id.str() + " is already in use; this card got the ID " + numbered);
  return free;
}

CardSource ImportTransaction::sourceOf(const Card& card) const {
  if (!card.isRespelled && card.rest.empty()) return {text_, card.source};
  auto own = std::make_shared<std::string>(card.source);
  own->append(card.rest);
  return {own, *own};
}

void ImportTransaction::addPerson(const Card& card) {
  PersonReading reading(card.lines, labels_);
  const OVString id = idFor(card, reading.id());
  if (id.isNull()) return;
  const auto person = std::make_shared<Person>(id, valuesOf(card.lines, reading), reading.tags(),
                                               book_.weak_from_this());
  person->setSource(sourceOf(card), reading.id());
  keep(person);
}

bool ImportTransaction::keep(const OVRef<Person>& person) {
  if (!byID_.try_emplace(person->key(), Store::Entry{person, {}}).second) return false;
  person->order = nextOrder_++;
  persons_.push_back(person);
  return true;
}

void ImportTransaction::addGroup(const Card& card) {
  const GroupReading reading(card.lines);
  const OVString id = idFor(card, reading.id);
  if (id.isNull()) return;
  auto group = std::make_shared<Group>();
  group->id = id;
  group->name = reading.name;
  group->place = {origin_, card.number};
  for (const GroupReading::Member& member : reading.members) {
    group->missing.push_back({member.id, {origin_, member.line->number()}});
  }
  group->oddLines = oddLinesOf(card.lines, reading);
  group->source = sourceOf(card);
  group->sourceID = reading.id;
  group->book = book_.weak_from_this();
  group->order = nextOrder_++;
  const Store::GroupPlace place{group, book_.makeGroup(group)};
  group->object = place.object;
  groups_.push_back(place);
  byID_.emplace(group->id.view(), Store::Entry{nullptr, place});
}

void ImportTransaction::prepare() {
  book_.persons.reserve(book_.persons.size() + persons_.size());
  book_.groups.reserve(book_.groups.size() + groups_.size());
  book_.byID.reserve(book_.byID.size() + byID_.size());
  membership_ = std::make_unique<Membership>(*this);
  membership_->join();
  addTags();
}

void ImportTransaction::commit() noexcept {
  book_.persons.insert(book_.persons.end(), std::make_move_iterator(persons_.begin()),
                       std::make_move_iterator(persons_.end()));
  book_.groups.insert(book_.groups.end(), groups_.begin(), groups_.end());
  book_.byID.merge(byID_);
  book_.nextOrder = nextOrder_;
  membership_->commit();
  isCommitted_ = true;
}

void ImportTransaction::addTags() {
  if (book_.tags == nullptr) return;
  for (const OVRef<Person>& person : persons_) {
    for (const OVString& tag : person->ownTags()) {
      book_.tags->addPersonIDForTag(person->ID(), tag);
    }
  }
}

void ImportTransaction::forgetTags() noexcept {
  if (book_.tags == nullptr) return;
  try {
    for (const OVRef<Person>& person : persons_) book_.tags->removeForPersonID(person->ID());
  } catch (const std::bad_alloc&) {  // tags of persons who are not there do no harm
  }
}

}  // namespace ov::card
