// The signals of libebook. Each handler holds its connection weakly, since a signal may be on its
// way while the book goes.

#include "signals.h"

#include <string_view>
#include <unordered_set>

namespace ov::eds {

namespace {

using Weak = std::weak_ptr<Connection>;

std::shared_ptr<Connection> target(gpointer data) { return static_cast<Weak*>(data)->lock(); }

gulong connect(gpointer object, const char* signal, GCallback callback, const Weak& connection) {
  return g_signal_connect_data(
      object, signal, callback, new Weak(connection),
      [](gpointer data, GClosure* /*closure*/) { delete static_cast<Weak*>(data); },
      static_cast<GConnectFlags>(0));
}

}  // namespace

gulong Signals::status(ESource* source, const Weak& connection) {
  return connect(source, "notify::connection-status", G_CALLBACK(statusCame), connection);
}

gulong Signals::removed(ESourceRegistry* registry, const Weak& connection) {
  return connect(registry, "source-removed", G_CALLBACK(sourceWent), connection);
}

gulong Signals::credentials(ESourceRegistry* registry, const Weak& connection) {
  return connect(registry, "credentials-required", G_CALLBACK(credentialsAsked), connection);
}

void Signals::watch(EBookClient* client, const Weak& connection) {
  connect(client, "backend-died", G_CALLBACK(died), connection);
  connect(client, "backend-property-changed", G_CALLBACK(propertyCame), connection);
}

void Signals::watch(EBookClientView* view, const Weak& connection) {
  connect(view, "objects-added", G_CALLBACK(cardsCame), connection);
  connect(view, "objects-modified", G_CALLBACK(cardsCame), connection);
  connect(view, "objects-removed", G_CALLBACK(cardsWent), connection);
  connect(view, "progress", G_CALLBACK(progressCame), connection);
}

void Signals::statusCame(ESource* /*source*/, GParamSpec* /*property*/, gpointer data) {
  if (const auto connection = target(data)) connection->statusChanged();
}

void Signals::sourceWent(ESourceRegistry* /*registry*/, ESource* source, gpointer data) {
  if (const auto connection = target(data)) connection->removed(e_source_get_uid(source));
}

void Signals::credentialsAsked(ESourceRegistry* /*registry*/, ESource* source,
                               ESourceCredentialsReason reason, const gchar* /*certificate*/,
                               GTlsCertificateFlags /*errors*/, const GError* /*error*/,
                               gpointer data) {
  const auto connection = target(data);
  if (connection == nullptr || connection->uid_ != e_source_get_uid(source)) return;
  connection->credentialsRequired(reason == E_SOURCE_CREDENTIALS_REASON_ERROR ||
                                  reason == E_SOURCE_CREDENTIALS_REASON_SSL_FAILED);
}

void Signals::died(EClient* client, gpointer data) {
  if (const auto connection = target(data)) connection->died(client);
}

/// Told by the service itself; the client's own properties are those of nobody once that has died.
void Signals::propertyCame(EClient* /*client*/, const gchar* name, const gchar* value,
                           gpointer data) {
  const auto connection = target(data);
  if (connection == nullptr || name == nullptr || value == nullptr) return;
  if (std::string_view(name) != "readonly") return;
  connection->isWritable_ = std::string_view(value) != "TRUE";
  connection->statusChanged();
}

void Signals::cardsCame(EBookClientView* /*view*/, const GSList* contacts, gpointer data) {
  const auto connection = target(data);
  if (connection == nullptr) return;
  bool isFirst = false;
  bool isRepeated = false;
  std::unordered_set<std::string> told;
  for (const GSList* each = contacts; each != nullptr; each = each->next) {
    auto* const contact = static_cast<EContact*>(each->data);
    std::string card = textOf(contact);
    const auto* const uid = static_cast<const char*>(e_contact_get_const(contact, E_CONTACT_UID));
    if (uid == nullptr) continue;
    isRepeated |= !told.insert(uid).second;
    isFirst |= connection->inbox_.add(uid, std::move(card));
  }
  // Of cards that are changed together in a local book, the service reports the first again and
  // again.
  if (isRepeated) isFirst |= connection->inbox_.addIncomplete();
  if (isFirst) connection->tell();
}

void Signals::cardsWent(EBookClientView* /*view*/, const GSList* uids, gpointer data) {
  const auto connection = target(data);
  if (connection == nullptr) return;
  bool isFirst = false;
  for (const GSList* each = uids; each != nullptr; each = each->next) {
    isFirst |= connection->inbox_.add(static_cast<const char*>(each->data), std::nullopt);
  }
  if (isFirst) connection->tell();
}

void Signals::progressCame(EBookClientView* /*view*/, guint /*percent*/, const gchar* message,
                           gpointer data) {
  const bool isEnd = message == nullptr || *message == '\0';
  if (const auto connection = target(data)) connection->progressed(isEnd);
}

}  // namespace ov::eds
