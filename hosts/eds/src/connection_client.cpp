// Opens the book in the service's process, again when that has died. What has signals is made on
// the session's thread, where they come in; the caller waits, no longer than its deadline.

#include <libebook/libebook.h>

#include <algorithm>

#include "awaited.h"
#include "connection.h"
#include "service_error.h"
#include "signals.h"

namespace ov::eds {

namespace {

/// How long a process that has died may stay in the way of the one that takes its place.
constexpr std::chrono::seconds kPatienceWithTheDead{10};
constexpr std::chrono::milliseconds kFirstPause{5};
constexpr std::chrono::milliseconds kLongestPause{200};

/// Not to wait for a server.
constexpr guint32 kNoWait = static_cast<guint32>(-1);

using ClientReply = Awaited<Reply<GRef<EBookClient>>>;
using ViewReply = Awaited<Reply<GRef<EBookClientView>>>;

struct ClientRequest {
  std::shared_ptr<ClientReply> reply;
  std::weak_ptr<Connection> connection;
};
struct ViewRequest {
  std::shared_ptr<ViewReply> reply;
  std::weak_ptr<Connection> connection;
};

void clientIsThere(GObject* /*source*/, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<ClientRequest> request(static_cast<ClientRequest*>(data));
  Fault fault;
  GRef<EBookClient> client(
      reinterpret_cast<EBookClient*>(e_book_client_connect_finish(result, fault.out())));
  if (client != nullptr) Signals::watch(client.get(), request->connection);
  request->reply->give({std::move(client), std::move(fault)});
}

void viewIsThere(GObject* source, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<ViewRequest> request(static_cast<ViewRequest*>(data));
  Fault fault;
  EBookClientView* view = nullptr;
  e_book_client_get_view_finish(reinterpret_cast<EBookClient*>(source), result, &view, fault.out());
  GRef<EBookClientView> owned(view);
  if (view != nullptr) {
    Signals::watch(view, request->connection);
    // What is there now is read; only what comes later is news.
    e_book_client_view_set_flags(view, E_BOOK_CLIENT_VIEW_FLAGS_NONE, fault.out());
    if (!fault) e_book_client_view_start(view, fault.out());
  }
  request->reply->give({std::move(owned), std::move(fault)});
}

}  // namespace

std::error_code Connection::ensureOpen(const Call& call, std::shared_ptr<Client>& client) {
  if (isGone_) return OVEDSError::NoBook;
  {
    const std::lock_guard lock(mutex_);
    client = client_;
  }
  if (client != nullptr) return {};
  // The process may end for want of work, or die, in this very moment: another takes its place, but
  // for a while the bus may still name the one that went.
  const ServiceCall whole(session_->worker(), call);
  const auto end = std::min(whole.deadline(), Worker::Clock::now() + kPatienceWithTheDead);
  auto pause = kFirstPause;
  std::error_code error = makeClient(call, client);
  while (error == OVEDSError::NoService && !whole.ended() && Worker::Clock::now() < end) {
    {
      std::unique_lock lock(mutex_);
      changed_.wait_for(lock, pause);
    }
    pause = std::min(2 * pause, kLongestPause);
    error = makeClient(call, client);
  }
  if (error) return meant(error);
  bool isSecond = false;
  {
    const std::lock_guard lock(mutex_);
    isSecond = std::exchange(hasBeenOpen_, true);
    client_ = client;
  }
  if (isSecond) inbox_.addIncomplete();
  return {};
}

/// Its objects go on the session's thread, where their signals come in.
std::shared_ptr<Connection::Client> Connection::clientOf(GRef<EBookClient> book) const {
  return {new Client{std::move(book), nullptr}, [session = session_](Client* client) {
            session->worker().post([client] { delete client; });
          }};
}

std::error_code Connection::makeClient(const Call& call, std::shared_ptr<Client>& client) {
  const ServiceCall request(session_->worker(), call);
  if (const auto early = request.ended()) return early;
  const auto reply = std::make_shared<ClientReply>();
  session_->worker().post(
      [reply, weak = weak_from_this(), source = std::shared_ptr<ESource>(anotherRef(source_.get())),
       cancellable = std::shared_ptr<GCancellable>(anotherRef(request.cancellable()))] {
        e_book_client_connect(source.get(), kNoWait, cancellable.get(), clientIsThere,
                              new ClientRequest{reply, weak});
      });
  auto came = reply->takeWithin(request);
  if (!came) return request.ended();
  if (came->result == nullptr) return request.errorOf(came->fault);
  client = clientOf(std::move(came->result));
  isWritable_ = e_client_is_readonly(E_CLIENT(client->book.get())) == FALSE;
  keepsLists_ = e_client_check_capability(E_CLIENT(client->book.get()), "contact-lists") != FALSE;
  return startView(*client, call);
}

std::error_code Connection::startView(Client& client, const Call& call) {
  const ServiceCall request(session_->worker(), call);
  const auto reply = std::make_shared<ViewReply>();
  session_->worker().post(
      [reply, weak = weak_from_this(),
       book = std::shared_ptr<EBookClient>(anotherRef(client.book.get())),
       cancellable = std::shared_ptr<GCancellable>(anotherRef(request.cancellable()))] {
        e_book_client_get_view(book.get(), kEverything, cancellable.get(), viewIsThere,
                               new ViewRequest{reply, weak});
      });
  auto came = reply->takeWithin(request);
  if (!came) return request.ended();
  if (came->result == nullptr) return request.errorOf(came->fault);
  client.view = std::move(came->result);
  return request.errorOf(came->fault);
}

}  // namespace ov::eds
