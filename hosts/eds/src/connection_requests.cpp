// Requests to the service. One whose process dies is made again where that does no harm; else the
// caller is told that nobody knows whether it was carried out.

#include <libebook/libebook.h>

#include "connection.h"
#include "service_error.h"

namespace ov::eds {

namespace {

constexpr int kMostRequests = 3;

struct FreeContacts {
  void operator()(GSList* list) const { g_slist_free_full(list, g_object_unref); }
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

}  // namespace

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

Connection::Outcome Connection::add(const Cards& cards, const Call& call) {
  const auto contacts = contactsOf(cards);
  Outcome outcome =
      request(call, false, [&](EBookClient* book, GCancellable* cancellable, GError** error) {
        GSList* uids = nullptr;
        const gboolean isDone = e_book_client_add_contacts_sync(
            book, contacts.get(), E_BOOK_OPERATION_FLAG_CONFLICT_FAIL, &uids, cancellable, error);
        const GTexts given(uids);
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
  const GTexts given(list);
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
