// Compares what is to be written with what the service holds: others may have changed it since, or
// a process that died may have written it already.

#include <unordered_map>

#include "applying.h"
#include "same_card.h"
#include "saving.h"

namespace ov::eds {

namespace {

using Current = std::unordered_map<std::string, std::string>;

Connection::Outcome fetchCurrent(BookContent& book, const std::vector<std::string>& uids,
                                 const Call& call, Current& current) {
  Connection::Cards cards;
  Connection::Outcome outcome = book.connection->fetch(uids, cards, call);
  for (std::string& card : cards) {
    std::string uid = uidOf(card);
    current.emplace(std::move(uid), std::move(card));
  }
  return outcome;
}

const std::string* in(const Current& current, const std::string& uid) {
  const auto at = current.find(uid);
  return at == current.end() ? nullptr : &at->second;
}

template <class Items>
std::vector<std::string> uidsOf(const Items& items) {
  std::vector<std::string> uids;
  uids.reserve(items.size());
  for (const auto& item : items) uids.push_back(item.uid);
  return uids;
}

}  // namespace

std::error_code Saver::check(Kind kind, Items& items) {
  Current current;
  const auto outcome = fetchCurrent(book_, uidsOf(items), call_, current);
  if (outcome.error) return outcome.error;
  std::erase_if(items,
                [&](Item& item) { return !isToBeWritten(kind, item, in(current, item.uid)); });
  return {};
}

bool Saver::isToBeWritten(Kind kind, Item& item, const std::string* current) {
  if (current == nullptr) {
    if (kind == Kind::Add) return true;
    kind == Kind::Remove ? done(kind, item, nullptr) : conflict(item, nullptr);
    return false;
  }
  if (kind != Kind::Remove && sayTheSame(*current, item.card, Photos::Ignored)) {
    done(kind, item, current);
    return false;
  }
  if (kind == Kind::Add || !sayTheSame(*current, item.base)) {
    conflict(item, current);
    return false;
  }
  if (kind == Kind::Change && *current != item.base) {
    // Only lines of the service's own are others.
    book_.adopt(item.entry, *current);
    item.base = *current;
    item.card = book_.cardOf(item.entry);
  }
  return true;
}

void Saver::conflict(const Item& item, const std::string* current) {
  error_ = OVEDSError::Conflict;
  Applier applier(book_);
  current == nullptr ? applier.go(item.uid) : applier.come(item.uid, *current);
  applier.finish();
}

void Saver::done(Kind kind, Items& items) {
  Current current;
  // Without an answer, what was written is what the service holds, but for its own lines.
  const auto outcome = kind == Kind::Remove ? Connection::Outcome()
                                            : fetchCurrent(book_, uidsOf(items), call_, current);
  for (Item& item : items) {
    const std::string* const found = in(current, item.uid);
    done(kind, item, found == nullptr ? &item.card : found);
    if (found == nullptr && kind != Kind::Remove && !outcome.error) {
      Applier applier(book_);
      applier.go(item.uid);
      applier.finish();
    }
  }
}

void Saver::done(Kind kind, Item& item, const std::string* current) {
  if (kind == Kind::Remove) {
    book_.removed.erase(item.uid);
    return;
  }
  if (current == nullptr) return;
  book_.adopt(item.entry, *current);
  if (sayTheSame(*current, item.card, Photos::Ignored)) return;
  // The service, or somebody else in the same moment, made something else of it.
  Applier applier(book_);
  applier.become(item.uid, *current);
  applier.finish();
}

}  // namespace ov::eds
