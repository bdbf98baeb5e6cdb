// Has the service ask the server. It tells neither of a dead server nor of a refresh it forgot: the
// server is tried first, and a refresh that does not begin is asked for again.

#include <libebook/libebook.h>

#include <algorithm>

#include "connection.h"

namespace ov::eds {

namespace {

/// A refresh that the service does not begin is asked for again: it forgets those that come while
/// it finds out who asks.
constexpr std::chrono::seconds kPatience{2};

}  // namespace

/// The service calls a refresh done also when the server is dead.
bool Connection::serverAnswers(GCancellable* cancellable) const {
  auto* const authentication = static_cast<ESourceAuthentication*>(
      e_source_get_extension(source_.get(), E_SOURCE_EXTENSION_AUTHENTICATION));
  const std::string host = taken(e_source_authentication_dup_host(authentication));
  if (host.empty()) return true;
  const GRef<GSocketClient> client(g_socket_client_new());
  const GRef<GSocketConnection> connection(g_socket_client_connect_to_host(
      client.get(), host.c_str(), e_source_authentication_get_port(authentication), cancellable,
      nullptr));
  return connection != nullptr;
}

Connection::Outcome Connection::refresh(const Call& call) {
  if (isLocal_) return {};
  if (!call.around) return refreshAll(call);
  Outcome outcome;
  call.around([&] { outcome = refreshAll(call); });
  return outcome;
}

Connection::Outcome Connection::refreshAll(const Call& call) {
  session_->credentials().forgive(uid_);
  const ServiceCall whole(session_->worker(), call);
  whole.setWake([this] { wake(); });
  Outcome outcome;
  // What ends first may have begun before this call, even before the service knew the password.
  for (int round = 0; round < 2 && !outcome.error; ++round) {
    while (!refreshOnce(call, whole, outcome)) {
    }
  }
  whole.setWake({});
  statusChanged();
  return outcome;
}

/// False when it has to be tried again.
bool Connection::refreshOnce(const Call& call, const ServiceCall& whole, Outcome& outcome) {
  Credentials& credentials = session_->credentials();
  outcome = {};
  if (!serverAnswers(whole.cancellable())) {
    // A call that ends early says nothing of the server.
    outcome.error = whole.ended();
    if (outcome.error) return true;
    isUnreachable_ = true;
    outcome.error = OVEDSError::Offline;
    return true;
  }
  isUnreachable_ = false;
  const int answers = credentials.answersGiven(uid_);
  int ended = 0;
  {
    const std::lock_guard lock(mutex_);
    ended = refreshesEnded_;
  }
  outcome =
      tryRequest(call, true, [](EBookClient* book, GCancellable* cancellable, GError** error) {
        return e_client_refresh_sync(E_CLIENT(book), cancellable, error);
      });
  if (outcome.error) return true;
  const auto isHopeless = [&] {
    return access_ == Access::NeedsCredentials && !credentials.mayAnswer(uid_);
  };
  bool isOver = false;
  {
    std::unique_lock lock(mutex_);
    const auto again = std::min(whole.deadline(), Worker::Clock::now() + kPatience);
    changed_.wait_until(lock, again, [&] {
      const bool isAnswered =
          credentials.answersGiven(uid_) != answers &&
          e_source_get_connection_status(source_.get()) == E_SOURCE_CONNECTION_STATUS_CONNECTED;
      return isGone_ || whole.hasEnded() || refreshesEnded_ != ended || isHopeless() || isAnswered;
    });
    isOver = refreshesEnded_ != ended;
  }
  if (isGone_) {
    outcome.error = OVEDSError::NoBook;
  } else if (isHopeless()) {
    outcome.error = OVEDSError::CredentialsNeeded;
  } else if (isOver) {
    access_ = Access::Granted;
    inbox_.addIncomplete();
    waitsForServer_ = false;
  } else if (const auto early = whole.ended()) {
    outcome.error = early;
  } else {
    return false;
  }
  return true;
}

}  // namespace ov::eds
