// A book's state, as signals tell it. They come in on the sessions' thread, where their handlers
// are connected and disconnected, too. A connection may be destroyed on any thread, and leaves that
// work to the other.

#include "connection.h"

#include "signals.h"

namespace ov::eds {

namespace {

bool isLocalSource(ESource* source) {
  if (e_source_has_extension(source, E_SOURCE_EXTENSION_ADDRESS_BOOK) == FALSE) return false;
  auto* const backend =
      E_SOURCE_BACKEND(e_source_get_extension(source, E_SOURCE_EXTENSION_ADDRESS_BOOK));
  return taken(e_source_backend_dup_backend_name(backend)) == "local";
}

}  // namespace

Connection::Connection(std::shared_ptr<Session> session, GRef<ESource> source)
    : session_(std::move(session)),
      source_(std::move(source)),
      uid_(e_source_get_uid(source_.get())),
      isLocal_(isLocalSource(source_.get())) {}

std::shared_ptr<Connection> Connection::open(std::shared_ptr<Session> session,
                                             const std::string& uid, const Call& call,
                                             std::error_code& error) {
  auto source = session->source(uid);
  if (source == nullptr ||
      e_source_has_extension(source.get(), E_SOURCE_EXTENSION_ADDRESS_BOOK) == FALSE) {
    error = OVEDSError::NoBook;
    return nullptr;
  }
  std::shared_ptr<Connection> connection(new Connection(std::move(session), std::move(source)));
  connection->watchSource();
  std::shared_ptr<Client> client;
  error = connection->ensureOpen(call, client);
  return error ? nullptr : connection;
}

void Connection::watchSource() {
  session_->worker().post([weak = weak_from_this()] {
    const auto connection = weak.lock();
    if (connection == nullptr) return;
    connection->statusHandler_ = Signals::status(connection->source_.get(), weak);
    connection->credentialsHandler_ = Signals::credentials(connection->session_->registry(), weak);
    connection->removedHandler_ = Signals::removed(connection->session_->registry(), weak);
  });
}

Connection::~Connection() {
  struct Left {
    GRef<ESource> source;
    GRef<ESourceRegistry> registry;
    gulong status;
    gulong removed;
    gulong credentials;
  };
  const auto left =
      std::make_shared<Left>(Left{anotherRef(source_.get()), anotherRef(session_->registry()),
                                  statusHandler_, removedHandler_, credentialsHandler_});
  session_->worker().post([left] {
    if (left->status != 0) g_signal_handler_disconnect(left->source.get(), left->status);
    if (left->credentials != 0) {
      g_signal_handler_disconnect(left->registry.get(), left->credentials);
    }
    if (left->removed != 0) g_signal_handler_disconnect(left->registry.get(), left->removed);
  });
}

std::string Connection::name() const { return taken(e_source_dup_display_name(source_.get())); }

void Connection::setNewsCallback(std::function<void()> callback) {
  const std::lock_guard lock(callbackMutex_);
  callback_ = std::move(callback);
  if (!callback_ || inbox_.empty()) return;
  session_->worker().post([weak = weak_from_this()] {
    if (const auto connection = weak.lock()) connection->tell();
  });
}

void Connection::tell() {
  const std::lock_guard lock(callbackMutex_);
  // It may set another one.
  if (const auto callback = callback_) callback();
}

OVEDSState Connection::state() const {
  if (isGone_) return OVEDSState::Gone;
  if (isUnreachable_) return OVEDSState::Offline;
  switch (isLocal_ ? Access::Granted : access_.load()) {
    case Access::Offline:
      return OVEDSState::Offline;
    case Access::NeedsCredentials:
      return OVEDSState::CredentialsNeeded;
    case Access::Unknown:
    case Access::Granted:
      break;
  }
  return isWritable_ ? OVEDSState::Connected : OVEDSState::ReadOnly;
}

void Connection::wake() {
  // Whoever waits has looked at the state before, or will see it now.
  { const std::lock_guard lock(mutex_); }
  changed_.notify_all();
}

void Connection::statusChanged() {
  wake();
  tell();
}

void Connection::progressed(bool isEnd) {
  if (!isEnd) return;
  {
    const std::lock_guard lock(mutex_);
    ++refreshesEnded_;
  }
  changed_.notify_all();
}

/// The service also reports when it could not ask the server at all.
void Connection::credentialsRequired(bool isError) {
  if (!isError) {
    access_ = Access::NeedsCredentials;
  } else if (access_ != Access::NeedsCredentials) {
    access_ = Access::Offline;
  }
  statusChanged();
}

void Connection::died(EClient* book) {
  std::shared_ptr<Client> client;
  {
    const std::lock_guard lock(mutex_);
    client = client_;
  }
  // Another connection may have taken its place already.
  if (client != nullptr && E_CLIENT(client->book.get()) == book) drop(client);
  if (inbox_.addIncomplete()) tell();
}

void Connection::removed(const std::string& uid) {
  if (uid != uid_) return;
  isGone_ = true;
  statusChanged();
}

void Connection::drop(const std::shared_ptr<Client>& client) {
  const std::lock_guard lock(mutex_);
  if (client_ == client) client_ = nullptr;
}

}  // namespace ov::eds
