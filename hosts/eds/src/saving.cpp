// Writes in lots. A lot that fails is compared with what the service holds, and what is left of it
// is written again, in the end card by card, so that one bad card keeps no other back.

#include "saving.h"

#include <utility>

namespace ov::eds {

namespace {

/// A local book writes a lot at once; a server gets one card after the other.
constexpr std::size_t kLocalLot = 500;
constexpr std::size_t kServerLot = 20;
/// The bus closes the connection of whoever sends more than 64 MiB of texts at once.
constexpr std::size_t kMostBytes = std::size_t{16} << 20;
constexpr int kMostRounds = 3;

/// What concerns one card, so that the others can be written.
bool concernsOneCard(const Connection::Outcome& outcome) {
  return outcome.error == OVEDSError::Refused || outcome.error == OVEDSError::Conflict;
}

}  // namespace

void Saver::collect() {
  for (const auto& person : book_.store->persons) {
    collect({person, {}}, person->ID().str(), newPersons_);
  }
  for (const auto& place : book_.store->groups) {
    collect({nullptr, place}, place.group->id.str(), newGroups_);
  }
  for (const auto& [uid, base] : book_.removed) removals_.push_back({uid, {}, base, {}});
  count_ = newPersons_.size() + newGroups_.size() + changes_.size() + removals_.size();
}

void Saver::collect(const Entry& entry, const std::string& uid, Items& added) {
  std::string base(book_.baseOf(entry));
  if (base.empty()) {
    added.push_back({uid, entry, {}, book_.cardOf(entry)});
    return;
  }
  if (entry.person != nullptr && entry.person->isAsItCame()) return;
  std::string card = book_.cardOf(entry);
  if (card != base) changes_.push_back({uid, entry, std::move(base), std::move(card)});
}

std::error_code Saver::run() {
  book_.saveProblems.clear();
  collect();
  if (count_ == 0) return {};
  if (book_.connection->state() == OVEDSState::Gone) return OVEDSError::NoBook;
  if (!book_.connection->isWritable()) {
    // What was read from a process that was about to die says nothing.
    Connection::Cards none;
    if (const auto asked = book_.connection->fetch({"-"}, none, call_); asked.error) {
      return asked.error;
    }
    if (!book_.connection->isWritable()) return OVEDSError::ReadOnly;
  }
  // Lists name persons, so these come first.
  if (const auto error = writeAll(Kind::Add, std::move(newPersons_))) return error;
  if (const auto error = writeAll(Kind::Add, std::move(newGroups_))) return error;
  if (const auto error = writeAll(Kind::Change, std::move(changes_))) return error;
  if (const auto error = writeAll(Kind::Remove, std::move(removals_))) return error;
  return error_;
}

std::error_code Saver::writeAll(Kind kind, Items items) {
  const std::size_t lot = book_.connection->isLocal() ? kLocalLot : kServerLot;
  for (auto at = items.begin(); at != items.end();) {
    Items part;
    std::size_t bytes = 0;
    do {
      bytes += at->card.size();
      part.push_back(std::move(*at++));
    } while (at != items.end() && part.size() < lot && bytes + at->card.size() <= kMostBytes);
    finished_ += part.size();
    if (const auto error = writeLot(kind, std::move(part), kind != Kind::Add)) return error;
    if (progress_) progress_(finished_, count_);
  }
  return {};
}

/// `isDoubtful` says that the service may hold something else than `base`.
std::error_code Saver::writeLot(Kind kind, Items items, bool isDoubtful) {
  for (int i = 0; i < kMostRounds; ++i) {
    if (isDoubtful) {
      if (const auto error = check(kind, items)) return error;
    }
    if (items.empty()) return {};
    const Connection::Outcome outcome = request(kind, items);
    if (!outcome.error) {
      done(kind, items);
      return {};
    }
    isDoubtful = true;
    if (outcome.isUnknown) continue;
    if (!concernsOneCard(outcome)) return outcome.error;
    if (items.size() > 1) return writeOneByOne(kind, std::move(items));
    const bool mayHelp = outcome.isNotFound || outcome.isTaken;
    if (outcome.error == OVEDSError::Conflict) {
      if (const auto news = book_.connection->refresh(call_); news.error) return news.error;
    } else if (!mayHelp || i + 1 == kMostRounds) {
      return giveUp(items.front(), outcome);
    }
  }
  return items.size() == 1 ? giveUp(items.front(), {OVEDSError::NoService, "", true})
                           : std::error_code(OVEDSError::NoService);
}

std::error_code Saver::writeOneByOne(Kind kind, Items items) {
  for (Item& item : items) {
    Items one;
    one.push_back(std::move(item));
    if (const auto error = writeLot(kind, std::move(one), true)) return error;
  }
  return {};
}

/// The card stays as it is in the book, and the others are written.
std::error_code Saver::giveUp(const Item& item, const Connection::Outcome& outcome) {
  error_ = outcome.error;
  book_.saveProblems.push_back({OVString(item.uid), OVString(outcome.reason)});
  return {};
}

Connection::Outcome Saver::request(Kind kind, const Items& items) {
  Connection::Cards cards;
  std::vector<std::string> uids;
  for (const Item& item : items) {
    cards.push_back(item.card);
    uids.push_back(item.uid);
    book_.written.insert(item.uid);
  }
  switch (kind) {
    case Kind::Add:
      return book_.connection->add(cards, call_);
    case Kind::Change:
      return book_.connection->modify(cards, call_);
    case Kind::Remove:
      break;
  }
  return book_.connection->remove(uids, call_);
}

}  // namespace ov::eds
