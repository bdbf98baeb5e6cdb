#include "session_core.h"

#include <string_view>

#include "awaited.h"
#include "service_error.h"

namespace ov::eds {

namespace {

constexpr int kMostStarts = 3;

using RegistryReply = Awaited<Reply<GRef<ESourceRegistry>>>;

/// Keeps the thread on which the reply comes in: the next registry would be the same, and broken,
/// as long as nobody has taken that.
struct RegistryRequest {
  std::shared_ptr<RegistryReply> reply;
  std::shared_ptr<Worker> worker;
};

void registryIsThere(GObject* /*source*/, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<RegistryRequest> request(static_cast<RegistryRequest*>(data));
  Fault fault;
  GRef<ESourceRegistry> registry(e_source_registry_new_finish(result, fault.out()));
  request->reply->give({std::move(registry), std::move(fault)});
}

/// Somebody took a name on the bus, or lost it.
void ownerChanged(GDBusConnection* /*bus*/, const gchar* /*sender*/, const gchar* /*path*/,
                  const gchar* /*interface*/, const gchar* /*signal*/, GVariant* parameters,
                  gpointer data) {
  const gchar* name = nullptr;
  const gchar* owner = nullptr;
  g_variant_get(parameters, "(&s&s&s)", &name, nullptr, &owner);
  if (std::string_view(name).find(".dataserver.Sources") == std::string_view::npos) return;
  *static_cast<std::atomic<bool>*>(data) = std::string_view(owner).empty();
}

}  // namespace

Session::Session(OVEDSSession::CredentialsCallback ask) : credentials_(std::move(ask)) {}

std::shared_ptr<Session> Session::open(OVEDSSession::CredentialsCallback ask, const Call& call,
                                       std::error_code& error) {
  std::shared_ptr<Session> session(new Session(std::move(ask)));
  error = session->connect(call);
  return error ? nullptr : session;
}

std::error_code Session::connect(const Call& call) {
  const ServiceCall request(*worker_, call);
  if (const auto early = request.ended()) return early;
  Fault fault;
  bus_.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, request.cancellable(), fault.out()));
  if (bus_ == nullptr) {
    const auto early = request.ended();
    return early ? early : std::error_code(OVEDSError::NoService);
  }
  g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);
  // The service ends when nobody needs it, and may do so in this very moment. What another call has
  // given up comes back cancelled until its thread has dropped it.
  std::error_code error;
  for (int i = 0; i < kMostStarts;) {
    error = connectRegistry(request);
    if (!error) break;
    if (const auto early = request.ended()) return early;
    if (error != std::errc::operation_canceled) ++i;
  }
  if (!error) watch();
  return error;
}

std::error_code Session::connectRegistry(const ServiceCall& request) {
  const auto reply = std::make_shared<RegistryReply>();
  worker_->post([reply, worker = worker_,
                 cancellable = std::shared_ptr<GCancellable>(anotherRef(request.cancellable()))] {
    e_source_registry_new(cancellable.get(), registryIsThere, new RegistryRequest{reply, worker});
  });
  auto came = reply->takeWithin(request);
  if (!came) return request.ended();
  if (came->result == nullptr) {
    const auto early = request.ended();
    if (early) return early;
    const bool isAnothers =
        came->fault && g_error_matches(came->fault.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED);
    return isAnothers ? std::make_error_code(std::errc::operation_canceled)
                      : std::error_code(OVEDSError::NoService);
  }
  registry_ = std::move(came->result);
  return {};
}

void Session::watch() {
  credentials_.watch(registry_.get());
  worker_->post([this] {
    busWatch_ = g_dbus_connection_signal_subscribe(
        bus_.get(), "org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
        "/org/freedesktop/DBus", "org.gnome.evolution.dataserver",
        G_DBUS_SIGNAL_FLAGS_MATCH_ARG0_NAMESPACE, ownerChanged, &isGone_, nullptr);
  });
}

Session::~Session() {
  if (registry_ == nullptr) return;
  Awaited<bool> done;
  const auto leave = [&] {
    credentials_.leave();
    if (busWatch_ != 0) g_dbus_connection_signal_unsubscribe(bus_.get(), busWatch_);
    registry_.reset();
    done.give(true);
  };
  if (worker_->isThisThread()) {
    leave();
    return;
  }
  worker_->post(leave);
  done.take();
}

}  // namespace ov::eds
