#pragma once

#include <libebook/libebook.h>

#include <memory>

#include "connection.h"

namespace ov::eds {

/// Takes the service's signals to a connection, as long as that lives. On the session's thread.
struct Signals {
  static gulong status(ESource* source, const std::weak_ptr<Connection>& connection);
  static gulong removed(ESourceRegistry* registry, const std::weak_ptr<Connection>& connection);
  static gulong credentials(ESourceRegistry* registry, const std::weak_ptr<Connection>& connection);
  static void watch(EBookClient* client, const std::weak_ptr<Connection>& connection);
  static void watch(EBookClientView* view, const std::weak_ptr<Connection>& connection);

 private:
  static void statusCame(ESource* source, GParamSpec* property, gpointer data);
  static void sourceWent(ESourceRegistry* registry, ESource* source, gpointer data);
  static void credentialsAsked(ESourceRegistry* registry, ESource* source,
                               ESourceCredentialsReason reason, const gchar* certificate,
                               GTlsCertificateFlags errors, const GError* error, gpointer data);
  static void died(EClient* client, gpointer data);
  static void propertyCame(EClient* client, const gchar* name, const gchar* value, gpointer data);
  static void cardsCame(EBookClientView* view, const GSList* contacts, gpointer data);
  static void cardsWent(EBookClientView* view, const GSList* uids, gpointer data);
  static void progressCame(EBookClientView* view, guint percent, const gchar* message,
                           gpointer data);
};

}  // namespace ov::eds
