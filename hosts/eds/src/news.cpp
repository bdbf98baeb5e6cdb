#include <unordered_set>

#include "applying.h"
#include "same_card.h"

namespace ov::eds {

namespace {

std::vector<std::string> uidsOfAll(const BookContent& book) {
  std::vector<std::string> uids;
  for (const auto& person : book.store->persons) uids.push_back(person->ID().str());
  for (const auto& place : book.store->groups) uids.push_back(place.group->id.str());
  return uids;
}

/// The service has these cards, and no others of these UIDs.
void applyAll(const Connection::Cards& cards, const std::vector<std::string>& uids,
              Applier& applier) {
  std::unordered_set<std::string> there;
  for (const std::string& card : cards) {
    std::string uid = uidOf(card);
    applier.come(uid, card);
    there.insert(std::move(uid));
  }
  for (const std::string& uid : uids) {
    if (!there.contains(uid)) applier.go(uid);
  }
}

/// Compares everything: some news have been missed.
std::error_code applyEverything(BookContent& book, Applier& applier, const Call& call) {
  Connection::Cards cards;
  if (const auto outcome = book.connection->fetchAll(cards, call); outcome.error) {
    return outcome.error;
  }
  applyAll(cards, uidsOfAll(book), applier);
  book.written.clear();
  return {};
}

/// News of what this book has written may be older than that: the service is asked.
std::error_code applyEach(BookContent& book, const Inbox::News& news, Applier& applier,
                          const Call& call) {
  std::vector<std::string> doubtful;
  for (const auto& [uid, card] : news) {
    if (book.written.contains(uid)) doubtful.push_back(uid);
  }
  Connection::Cards cards;
  if (const auto outcome = book.connection->fetch(doubtful, cards, call); outcome.error) {
    return outcome.error;
  }
  applyAll(cards, doubtful, applier);
  for (const auto& [uid, card] : news) {
    if (book.written.contains(uid)) continue;
    card ? applier.come(uid, *card) : applier.go(uid);
  }
  return {};
}

}  // namespace

std::error_code applyNews(BookContent& book, const Call& call) {
  Inbox::Content content = book.connection->inbox().take();
  if (content.news.empty() && !content.isIncomplete) return {};
  Applier applier(book);
  const std::error_code error = content.isIncomplete ? applyEverything(book, applier, call)
                                                     : applyEach(book, content.news, applier, call);
  if (error) {
    book.connection->inbox().putBack(std::move(content));
    return error;
  }
  applier.finish();
  return {};
}

}  // namespace ov::eds
