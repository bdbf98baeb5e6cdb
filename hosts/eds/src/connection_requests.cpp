#include <libebook/libebook.h>

#include <algorithm>
#include <iterator>

#include "connection.h"
#include "service_error.h"

namespace ov::eds {

namespace {

constexpr int kMostRequests = 3;

struct FreeContacts {
  void operator()(GSList* list) const { g_slist_free_full(list, g_object_unref); }
};
struct FreeList {
  void operator()(GSList* list) const { g_slist_free(list); }
};
struct FreeTexts {
  void operator()(GSList* list) const { g_slist_free_full(list, g_free); }
};

std::unique_ptr<GSList, FreeContacts> contactsOf(const Connection::Cards& cards) {
  GSList* list = nullptr;
  for (const std::string& card : cards) {
    list = g_slist_prepend(list, e_contact_new_from_vcard(card.c_str()));
  }
  return std::unique_ptr<GSList, FreeContacts>(g_slist_reverse(list));
}

Connection::Outcome outcomeOf(const Fault& fault, const ServiceCall& call) {
  // Nobody knows whether what failed without a reason was done.
  if (!fault) {
    const std::error_code early = call.ended();
    return {early ? early : std::error_code(OVEDSError::NoService), "", !early};
  }
  const GError& error = *fault.get();
  Connection::Outcome outcome;
  outcome.error = isOutOfSync(error) ? std::error_code(OVEDSError::Conflict) : call.errorOf(fault);
  outcome.reason = error.message;
  outcome.isNotFound = isNotFound(error);
  outcome.isTaken = isTaken(error);
  outcome.isUnknown = !call.ended() && isDeadProcess(error);
  return outcome;
}

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

Connection::Outcome Connection::request(const Call& call, bool mayRepeat, const Request& make) {
  if (!call.around) return tryRequest(call, mayRepeat, make);
  Outcome outcome;
  call.around([&] { outcome = tryRequest(call, mayRepeat, make); });
  return outcome;
}

Connection::Outcome Connection::tryRequest(const Call& call, bool mayRepeat, const Request& make) {
  Outcome outcome;
  for (int i = 0; i < kMostRequests; ++i) {
    outcome = {};
    std::shared_ptr<Client> client;
    outcome.error = ensureOpen(call, client);
    if (outcome.error) return outcome;
    const ServiceCall timed(session_->worker(), call);
    outcome.error = timed.ended();
    if (outcome.error) return outcome;
    Fault fault;
    if (make(client->book.get(), timed.cancellable(), fault.out()) != FALSE) return outcome;
    outcome = outcomeOf(fault, timed);
    outcome.error = meant(outcome.error);
    if (isGone_) outcome.error = OVEDSError::NoBook;
    if (!outcome.isUnknown || isGone_) return outcome;
    drop(client);
    inbox_.addIncomplete();
    if (!mayRepeat) return outcome;
  }
  return outcome;
}

Connection::Outcome Connection::readCards(const std::string& query, Cards& cards,
                                          const Call& call) {
  return request(
      call, true, [&](EBookClient* book, GCancellable* cancellable, GError** error) -> gboolean {
        GSList* list = nullptr;
        cards.clear();
        if (e_book_client_get_contacts_sync(book, query.c_str(), &list, cancellable, error) ==
            FALSE) {
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
  return readCards(kEverything, cards, call);
}

Connection::Outcome Connection::fetch(const std::vector<std::string>& uids, Cards& cards,
                                      const Call& call) {
  constexpr std::size_t kLot = 100;
  Outcome outcome;
  cards.clear();
  for (std::size_t start = 0; start < uids.size(); start += kLot) {
    std::string query = "(or";
    const std::size_t end = std::min(start + kLot, uids.size());
    for (std::size_t i = start; i < end; ++i) query += " (is \"id\" " + quoted(uids[i]) + ")";
    Cards lot;
    outcome = readCards(query + ")", lot, call);
    if (outcome.error) return outcome;
    cards.insert(cards.end(), std::make_move_iterator(lot.begin()),
                 std::make_move_iterator(lot.end()));
  }
  return outcome;
}

Connection::Outcome Connection::add(const Cards& cards, const Call& call) {
  const auto contacts = contactsOf(cards);
  Outcome outcome =
      request(call, false, [&](EBookClient* book, GCancellable* cancellable, GError** error) {
        GSList* uids = nullptr;
        const gboolean isDone = e_book_client_add_contacts_sync(
            book, contacts.get(), E_BOOK_OPERATION_FLAG_CONFLICT_FAIL, &uids, cancellable, error);
        const std::unique_ptr<GSList, FreeTexts> given(uids);
        return isDone;
      });
  noteWritten(outcome);
  return outcome;
}

Connection::Outcome Connection::modify(const Cards& cards, const Call& call) {
  const auto contacts = contactsOf(cards);
  Outcome outcome =
      request(call, false, [&](EBookClient* book, GCancellable* cancellable, GError** error) {
        return e_book_client_modify_contacts_sync(
            book, contacts.get(), E_BOOK_OPERATION_FLAG_CONFLICT_FAIL, cancellable, error);
      });
  noteWritten(outcome);
  return outcome;
}

Connection::Outcome Connection::remove(const std::vector<std::string>& uids, const Call& call) {
  GSList* list = nullptr;
  for (const std::string& uid : uids) list = g_slist_prepend(list, g_strdup(uid.c_str()));
  list = g_slist_reverse(list);
  const std::unique_ptr<GSList, FreeTexts> given(list);
  Outcome outcome =
      request(call, false, [&](EBookClient* book, GCancellable* cancellable, GError** error) {
        return e_book_client_remove_contacts_sync(book, list, E_BOOK_OPERATION_FLAG_CONFLICT_FAIL,
                                                  cancellable, error);
      });
  noteWritten(outcome);
  return outcome;
}

void Connection::noteWritten(const Outcome& outcome) {
  if (isLocal_) return;
  if (outcome.error == OVEDSError::Offline) isUnreachable_ = true;
  if (outcome.error) return;
  // The service takes changes for a server that it may not or cannot ask, and keeps them.
  const bool isSent =
      access_ != Access::NeedsCredentials &&
      e_source_get_connection_status(source_.get()) == E_SOURCE_CONNECTION_STATUS_CONNECTED;
  if (isSent) {
    access_ = Access::Granted;
    isUnreachable_ = false;
  } else {
    waitsForServer_ = true;
  }
}

}  // namespace ov::eds
