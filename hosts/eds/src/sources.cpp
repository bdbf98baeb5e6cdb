// To the service a book is a source: a record of settings, one of which names the backend that
// keeps the cards. A book is added or removed by adding or removing its record.

#include "sources.h"

#include <libebook/libebook.h>

#include <algorithm>
#include <string_view>

#include "service_call.h"
#include "session_core.h"

namespace ov::eds {

namespace {

struct FreeSources {
  void operator()(GList* list) const { g_list_free_full(list, g_object_unref); }
};

std::string backendOf(ESource* source) {
  auto* const backend =
      E_SOURCE_BACKEND(e_source_get_extension(source, E_SOURCE_EXTENSION_ADDRESS_BOOK));
  return taken(e_source_backend_dup_backend_name(backend));
}

OVEDSBookKind kindOf(ESource* source) {
  const std::string backend = backendOf(source);
  if (backend == "local") return OVEDSBookKind::Local;
  return backend == "carddav" || backend == "webdav" ? OVEDSBookKind::CardDAV
                                                     : OVEDSBookKind::Other;
}

GRef<ESource> newSource(const OVString& name, const char* parent, const char* backend) {
  GRef<ESource> source(e_source_new(nullptr, nullptr, nullptr));
  e_source_set_parent(source.get(), parent);
  e_source_set_display_name(source.get(), name.isNull() ? "" : name.str().c_str());
  auto* const extension =
      E_SOURCE_BACKEND(e_source_get_extension(source.get(), E_SOURCE_EXTENSION_ADDRESS_BOOK));
  e_source_backend_set_backend_name(extension, backend);
  return source;
}

OVString commit(Session& session, ESource* source, const Call& call, std::error_code& error) {
  const ServiceCall request(session.worker(), call);
  error = request.ended();
  if (error) return nullptr;
  GList list{source, nullptr, nullptr};
  Fault fault;
  e_source_registry_create_sources_sync(session.registry(), &list, request.cancellable(),
                                        fault.out());
  error = request.errorOf(fault);
  return error ? OVString() : OVString(e_source_get_uid(source));
}

struct FreeURI {
  void operator()(GUri* uri) const { g_uri_unref(uri); }
};

}  // namespace

std::vector<OVEDSBookInfo> booksOf(const Session& session) {
  std::vector<OVEDSBookInfo> books;
  const std::unique_ptr<GList, FreeSources> sources(
      e_source_registry_list_sources(session.registry(), E_SOURCE_EXTENSION_ADDRESS_BOOK));
  const GRef<ESource> usual(e_source_registry_ref_default_address_book(session.registry()));
  for (const GList* each = sources.get(); each != nullptr; each = each->next) {
    auto* const source = static_cast<ESource*>(each->data);
    if (e_source_registry_check_enabled(session.registry(), source) == FALSE) continue;
    const OVEDSBookKind kind = kindOf(source);
    books.push_back({OVString(e_source_get_uid(source)),
                     OVString(taken(e_source_dup_display_name(source))), kind,
                     e_source_get_writable(source) != FALSE || kind == OVEDSBookKind::Local,
                     usual != nullptr && e_source_equal(usual.get(), source) != FALSE});
  }
  std::stable_sort(books.begin(), books.end(), [](const auto& a, const auto& b) {
    return std::pair(a.name.view(), a.uid.view()) < std::pair(b.name.view(), b.uid.view());
  });
  return books;
}

OVString addLocalSource(Session& session, const OVString& name, const Call& call,
                        std::error_code& error) {
  const auto source = newSource(name, "local-stub", "local");
  return commit(session, source.get(), call, error);
}

OVString addCardDAVSource(Session& session, const OVString& name, const OVEDSServer& server,
                          const Call& call, std::error_code& error) {
  const std::unique_ptr<GUri, FreeURI> uri(
      g_uri_parse(server.url.str().c_str(), G_URI_FLAGS_ENCODED, nullptr));
  const std::string scheme = uri == nullptr ? "" : g_uri_get_scheme(uri.get());
  if ((scheme != "http" && scheme != "https") ||
      std::string_view(g_uri_get_host(uri.get())).empty()) {
    error = std::make_error_code(std::errc::invalid_argument);
    return nullptr;
  }
  const auto source = newSource(name, "carddav-stub", "carddav");
  auto* const authentication = static_cast<ESourceAuthentication*>(
      e_source_get_extension(source.get(), E_SOURCE_EXTENSION_AUTHENTICATION));
  constexpr int kSecure = 443;
  constexpr int kPlain = 80;
  const int port = g_uri_get_port(uri.get());
  const int usual = scheme == "https" ? kSecure : kPlain;
  e_source_authentication_set_host(authentication, g_uri_get_host(uri.get()));
  e_source_authentication_set_port(authentication, static_cast<guint16>(port > 0 ? port : usual));
  e_source_authentication_set_method(authentication, "plain/password");
  e_source_authentication_set_user(authentication, server.user.str().c_str());
  auto* const place = static_cast<ESourceWebdav*>(
      e_source_get_extension(source.get(), E_SOURCE_EXTENSION_WEBDAV_BACKEND));
  e_source_webdav_set_uri(place, uri.get());
  auto* const security = static_cast<ESourceSecurity*>(
      e_source_get_extension(source.get(), E_SOURCE_EXTENSION_SECURITY));
  e_source_security_set_secure(security, scheme == "https" ? TRUE : FALSE);
  auto* const offline = static_cast<ESourceOffline*>(
      e_source_get_extension(source.get(), E_SOURCE_EXTENSION_OFFLINE));
  e_source_offline_set_stay_synchronized(offline, TRUE);
  return commit(session, source.get(), call, error);
}

std::error_code removeSource(Session& session, const OVString& uid, const Call& call) {
  const auto source = session.source(uid.str());
  if (source == nullptr) return OVEDSError::NoBook;
  const ServiceCall request(session.worker(), call);
  if (const auto early = request.ended()) return early;
  Fault fault;
  e_source_remove_sync(source.get(), request.cancellable(), fault.out());
  return request.errorOf(fault);
}

}  // namespace ov::eds
