#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <system_error>
#include <vector>

#include <OVAddressBookEDS/eds_call.h>
#include <OVAddressBookEDS/eds_error.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

class OVEDSBook;

namespace ov::eds {
class Session;
}

enum class OVEDSBookKind : std::uint8_t { Local, CardDAV, Other };

/// What the service says about a book without opening it.
struct OVEDSBookInfo {
  OVString uid;
  OVString name;
  OVEDSBookKind kind = OVEDSBookKind::Other;
  /// Whether the book may be changed, as far as it is known before the book is opened.
  bool isWritable = false;
  /// Whether it is the one that the desktop's programs add to.
  bool isDefault = false;
};

/// Where a book on a server is.
struct OVEDSServer {
  /// The address of the book itself, "https://dav.example.org/kaya/contacts/".
  OVString url;
  OVString user;
};

struct OVEDSCredentials {
  /// Null for the user whom the book names.
  OVString user;
  OVString password;
};

/// A server wants to know who asks.
struct OVEDSCredentialsRequest {
  OVString bookUID;
  OVString bookName;
  /// The user whom the book names; may be "".
  OVString user;
  /// Whether the server has refused what it was given before.
  bool wasRejected = false;
  /// Gives the credentials: on any thread, at any time, also after the callback has returned. Only
  /// the first call counts, and none has to come.
  std::function<void(const OVEDSCredentials&)> answer;
};

/// The state of a session's connection to the service.
enum class OVEDSSessionState : std::uint8_t { Connected, Gone };

/// A connection with the desktop's address-book service, evolution-data-server.
///
/// All sessions of a process share one thread, on which the service reports changes and callbacks
/// run; the calls themselves are made on the caller's thread, and wait there no longer than their
/// deadline. Any thread may call a session. It lives at least as long as its books.
///
/// From the first session on, losing the session bus does not end the program.
class OVEDSSession final : public OVObject {
 public:
  /// Called on the session's thread for each request of a server. It must return soon, and must not
  /// call the session or its books: a program that has to ask somebody does so elsewhere, and
  /// answers when it knows.
  using CredentialsCallback = std::function<void(const OVEDSCredentialsRequest&)>;

  /// A new session; null, and the reason in `error`, when the service cannot be reached. Without
  /// `credentials`, books are as they are without a password.
  [[nodiscard]] static OVRef<OVEDSSession> open(std::error_code& error,
                                                CredentialsCallback credentials = {},
                                                const ov::eds::Call& call = {});
  ~OVEDSSession() override;

  /// Gone when the service that lists the books has died; books that are open work on.
  [[nodiscard]] OVEDSSessionState state() const;

  /// The enabled books, in the order of their names.
  [[nodiscard]] std::vector<OVEDSBookInfo> books() const;

  /// Makes a book on this computer. Returns its UID, or null and the reason in `error`.
  [[nodiscard]] OVString addLocalBook(const OVString& name, std::error_code& error,
                                      const ov::eds::Call& call = {});
  /// Makes a book of this computer show, and change, what is on a CardDAV server. The server is not
  /// asked: the first opening does that. `std::errc::invalid_argument` for a URL that is none.
  [[nodiscard]] OVString addCardDAVBook(const OVString& name, const OVEDSServer& server,
                                        std::error_code& error, const ov::eds::Call& call = {});
  /// Takes the book off this computer: a local one with all that is in it, of a server's what is
  /// kept here.
  [[nodiscard]] std::error_code removeBook(const OVString& uid, const ov::eds::Call& call = {});

  /// Opens a book, empty until it is loaded; null, and the reason in `error`, when it cannot be
  /// opened. A book whose server does not answer opens with what is known of it here.
  [[nodiscard]] OVRef<OVEDSBook> openBook(const OVString& uid, std::error_code& error,
                                          const ov::eds::Call& call = {});

 private:
  explicit OVEDSSession(std::shared_ptr<ov::eds::Session> session);

  std::shared_ptr<ov::eds::Session> session_;
};
