#include "session_core.h"

#include <string_view>
#include <utility>
#include <vector>

#include "awaited.h"

namespace ov::eds {

namespace {

constexpr int kMostStarts = 3;

/// Null when the service has no list of sources to give.
using RegistryReply = Awaited<GRef<ESourceRegistry>>;

/// Who waits for the list of sources. Of the sessions' thread.
std::vector<std::shared_ptr<RegistryReply>>& waiting() {
  thread_local std::vector<std::shared_ptr<RegistryReply>> replies;
  return replies;
}

void registryIsThere(GObject* /*source*/, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<std::shared_ptr<Worker>> worker(
      static_cast<std::shared_ptr<Worker>*>(data));
  const GRef<ESourceRegistry> registry(e_source_registry_new_finish(result, nullptr));
  for (const auto& reply : std::exchange(waiting(), {})) reply->give(anotherRef(registry.get()));
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
  // The service ends when nobody needs it, and may do so in this very moment.
  std::error_code error;
  for (int i = 0; i < kMostStarts; ++i) {
    error = connectRegistry(request);
    if (!error || request.ended()) break;
  }
  if (!error) watch();
  return error;
}

std::error_code Session::connectRegistry(const ServiceCall& request) {
  // A process has one list of sources, so the making of it is never cancelled: others would be
  // given a broken one. Who waits for it may give up, and who comes later waits for the same.
  const auto reply = std::make_shared<RegistryReply>();
  worker_->post([reply, worker = worker_] {
    waiting().push_back(reply);
    if (waiting().size() > 1) return;
    e_source_registry_new(nullptr, registryIsThere, new std::shared_ptr<Worker>(worker));
  });
  registry_ = reply->takeWithin(request).value_or(nullptr);
  if (registry_ != nullptr) return {};
  const auto early = request.ended();
  return early ? early : std::error_code(OVEDSError::NoService);
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
