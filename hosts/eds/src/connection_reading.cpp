// All cards come in one message, which holds 64 MiB: the service's process dies of a larger one.
// Then the book is read in lots, now and from then on.

#include <libebook/libebook.h>

#include <algorithm>
#include <iterator>

#include "connection.h"
#include "service_error.h"

namespace ov::eds {

namespace {

struct FreeList {
  void operator()(GSList* list) const { g_slist_free(list); }
};

/// The service also finds no cards, without an error, where it cannot read its store. Asked for one
/// card, it says so.
gboolean canRead(EBookClient* book, GCancellable* cancellable, GError** error) {
  EContact* contact = nullptr;
  Fault fault;
  e_book_client_get_contact_sync(book, "-", &contact, cancellable, fault.out());
  const GRef<EContact> found(contact);
  if (!fault || isNotFound(*fault.get())) return TRUE;
  g_propagate_error(error, fault.release());
  return FALSE;
}

/// The text as a word of the service's query language.
std::string quoted(const std::string& text) {
  std::string word = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') word += '\\';
    word += c;
  }
  return word += '"';
}

}  // namespace

std::string textOf(EContact* contact) {
  constexpr std::string_view kEnd = "\r\n";
  const GText card(e_vcard_to_string(E_VCARD(contact), EVC_FORMAT_VCARD_30));
  const std::string_view view(card.get());
  std::string text;
  text.reserve(view.size() + kEnd.size());
  text = view;
  if (!text.ends_with('\n')) text += kEnd;
  return text;
}

Connection::Outcome Connection::readCards(const std::string& query, bool mayRepeat, Cards& cards,
                                          const Call& call) {
  return request(call, mayRepeat,
                 [&](EBookClient* book, GCancellable* cancellable, GError** error) -> gboolean {
                   GSList* list = nullptr;
                   cards.clear();
                   if (e_book_client_get_contacts_sync(book, query.c_str(), &list, cancellable,
                                                       error) == FALSE) {
                     return FALSE;
                   }
                   if (list == nullptr) return canRead(book, cancellable, error);
                   const std::unique_ptr<GSList, FreeList> held(list);
                   cards.reserve(g_slist_length(list));
                   for (GSList* each = list; each != nullptr; each = each->next) {
                     // Let go at once: the next text takes its memory.
                     const GRef<EContact> contact(static_cast<EContact*>(each->data));
                     cards.push_back(textOf(contact.get()));
                   }
                   return TRUE;
                 });
}

Connection::Outcome Connection::fetchAll(Cards& cards, const Call& call) {
  if (!isLarge_) {
    Outcome outcome = readCards(kEverything, false, cards, call);
    if (!outcome.isUnknown) return outcome;
    isLarge_ = true;
  }
  std::vector<std::string> uids;
  Outcome outcome = readUIDs(uids, call);
  return outcome.error ? outcome : fetch(uids, cards, call);
}

Connection::Outcome Connection::readUIDs(std::vector<std::string>& uids, const Call& call) {
  return request(
      call, true, [&](EBookClient* book, GCancellable* cancellable, GError** error) -> gboolean {
        GSList* list = nullptr;
        uids.clear();
        if (e_book_client_get_contacts_uids_sync(book, kEverything, &list, cancellable, error) ==
            FALSE) {
          return FALSE;
        }
        if (list == nullptr) return canRead(book, cancellable, error);
        const GTexts held(list);
        for (const GSList* each = list; each != nullptr; each = each->next) {
          uids.emplace_back(static_cast<const char*>(each->data));
        }
        return TRUE;
      });
}

Connection::Outcome Connection::fetch(const std::vector<std::string>& uids, Cards& cards,
                                      const Call& call) {
  // They must fit into a message even where they have large photos.
  constexpr std::size_t kLot = 25;
  Outcome outcome;
  cards.clear();
  for (std::size_t start = 0; start < uids.size(); start += kLot) {
    std::string query = "(or";
    const std::size_t end = std::min(start + kLot, uids.size());
    for (std::size_t i = start; i < end; ++i) query += " (is \"id\" " + quoted(uids[i]) + ")";
    Cards lot;
    outcome = readCards(query + ")", true, lot, call);
    if (outcome.error) return outcome;
    cards.insert(cards.end(), std::make_move_iterator(lot.begin()),
                 std::make_move_iterator(lot.end()));
  }
  return outcome;
}

}  // namespace ov::eds
