// The same trouble comes under many codes of several domains. Some of a dead process would read as
// a refusal, so a dead process is looked for first.

#include "service_error.h"

#include <libebook/libebook.h>

namespace ov::eds {

namespace {

class Category final : public std::error_category {
 public:
  [[nodiscard]] const char* name() const noexcept override { return "OVEDSError"; }
  [[nodiscard]] std::string message(int code) const override {
    switch (static_cast<OVEDSError>(code)) {
      case OVEDSError::NoService:
        return "the address-book service cannot be reached";
      case OVEDSError::NoBook:
        return "there is no such address book";
      case OVEDSError::ReadOnly:
        return "the address book is read-only";
      case OVEDSError::Offline:
        return "the server of the address book cannot be reached";
      case OVEDSError::CredentialsNeeded:
        return "the server of the address book wants other credentials";
      case OVEDSError::Conflict:
        return "others have changed what was to be written";
      case OVEDSError::Refused:
        return "the address-book service refused";
    }
    return "unknown";
  }
};

bool is(const GError& error, GQuark domain, int code) {
  return error.domain == domain && error.code == code;
}

bool isUnreachable(const GError& error) {
  if (is(error, E_CLIENT_ERROR, E_CLIENT_ERROR_REPOSITORY_OFFLINE) ||
      is(error, E_CLIENT_ERROR, E_CLIENT_ERROR_OFFLINE_UNAVAILABLE)) {
    return true;
  }
  if (error.domain == G_RESOLVER_ERROR) return true;
  if (error.domain != G_IO_ERROR) return false;
  switch (error.code) {
    case G_IO_ERROR_CONNECTION_REFUSED:
    case G_IO_ERROR_HOST_UNREACHABLE:
    case G_IO_ERROR_NETWORK_UNREACHABLE:
    case G_IO_ERROR_HOST_NOT_FOUND:
    case G_IO_ERROR_TIMED_OUT:
    case G_IO_ERROR_BROKEN_PIPE:
      return true;
    default:
      return false;
  }
}

std::error_code meaningOfClientError(int code) {
  switch (code) {
    case E_CLIENT_ERROR_PERMISSION_DENIED:
      return OVEDSError::ReadOnly;
    case E_CLIENT_ERROR_AUTHENTICATION_FAILED:
    case E_CLIENT_ERROR_AUTHENTICATION_REQUIRED:
      return OVEDSError::CredentialsNeeded;
    case E_CLIENT_ERROR_OUT_OF_SYNC:
      return OVEDSError::Conflict;
    default:
      return OVEDSError::Refused;
  }
}

}  // namespace

const std::error_category& errorCategory() noexcept {
  static const Category category;
  return category;
}

std::error_code meaningOf(const GError& error) {
  if (isDeadProcess(error)) return OVEDSError::NoService;
  if (isUnreachable(error)) return OVEDSError::Offline;
  if (error.domain == G_IO_ERROR && error.code == G_IO_ERROR_CANCELLED) {
    return std::make_error_code(std::errc::operation_canceled);
  }
  if (error.domain == G_DBUS_ERROR || error.domain == G_IO_ERROR) return OVEDSError::NoService;
  if (is(error, E_BOOK_CLIENT_ERROR, E_BOOK_CLIENT_ERROR_NO_SUCH_BOOK)) return OVEDSError::NoBook;
  return error.domain == E_CLIENT_ERROR ? meaningOfClientError(error.code)
                                        : std::error_code(OVEDSError::Refused);
}

bool isDeadProcess(const GError& error) {
  return is(error, G_DBUS_ERROR, G_DBUS_ERROR_NO_REPLY) ||
         is(error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) ||
         is(error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) ||
         is(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD) ||
         is(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_OBJECT) ||
         is(error, G_DBUS_ERROR, G_DBUS_ERROR_DISCONNECTED) ||
         is(error, G_IO_ERROR, G_IO_ERROR_CLOSED) ||
         // What GLib says of a process that it saw leave the bus just before the call.
         is(error, G_IO_ERROR, G_IO_ERROR_FAILED) ||
         is(error, E_CLIENT_ERROR, E_CLIENT_ERROR_DBUS_ERROR) ||
         is(error, E_CLIENT_ERROR, E_CLIENT_ERROR_NOT_OPENED);
}

bool isNotFound(const GError& error) {
  return is(error, E_BOOK_CLIENT_ERROR, E_BOOK_CLIENT_ERROR_CONTACT_NOT_FOUND);
}

bool isOutOfSync(const GError& error) {
  return is(error, E_CLIENT_ERROR, E_CLIENT_ERROR_OUT_OF_SYNC);
}

bool isTaken(const GError& error) {
  return is(error, E_BOOK_CLIENT_ERROR, E_BOOK_CLIENT_ERROR_CONTACT_ID_ALREADY_EXISTS);
}

}  // namespace ov::eds
