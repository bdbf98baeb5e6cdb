// A session is the bus and the service's list of sources, which is made and destroyed on the
// sessions' thread. The session is gone while nobody on the bus owns the name of the process that
// keeps the list.

#include "session_core.h"

#include <string_view>

#include "awaited.h"

namespace ov::eds {

namespace {

constexpr int kMostStarts = 3;

/// Null when the service has no list of sources to give. Released where it was made, on the thread
/// of the sessions.
std::shared_ptr<ESourceRegistry> newRegistry(const std::shared_ptr<Worker>& worker) {
  ESourceRegistry* const made = e_source_registry_new_sync(nullptr, nullptr);
  if (made == nullptr) return nullptr;
  return {made, [worker](ESourceRegistry* registry) {
            if (worker->isThisThread()) {
              g_object_unref(registry);
            } else {
              worker->post([registry] { g_object_unref(registry); });
            }
          }};
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
  // A process has one list of sources, which libebook gives to all who ask, even while another
  // thread destroys it or after its making was cancelled. So one thread makes and destroys it, and
  // only the waiting for it is given up.
  const auto reply = std::make_shared<Awaited<std::shared_ptr<ESourceRegistry>>>();
  worker_->post([reply, worker = worker_] { reply->give(newRegistry(worker)); });
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
