#pragma once

#include <libebook/libebook.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>
#include <vector>

#include <OVAddressBookEDS/eds_changes.h>

#include "inbox.h"
#include "session_core.h"

namespace ov::eds {

/// The card as the service sent it, as long as nothing has been looked up in it; ends with a line
/// end, as the cards that are written here do.
[[nodiscard]] std::string textOf(EContact* contact);

/// A book as the service has it. Calls are made on the caller's thread; news come in on that of the
/// session. When the service's process has died, the next call makes a new connection.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  /// Null, and the reason, when there is no such book or it cannot be opened.
  [[nodiscard]] static std::shared_ptr<Connection> open(std::shared_ptr<Session> session,
                                                        const std::string& uid, const Call& call,
                                                        std::error_code& error);
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection();

  /// What a request came to, in our words and in the service's.
  struct Outcome {
    std::error_code error = {};
    std::string reason = {};
    /// The service's process died: nobody knows whether the request was carried out.
    bool isUnknown = false;
    bool isNotFound = false;
    bool isTaken = false;
  };
  using Cards = std::vector<std::string>;

  /// All cards, in the service's order unless they are too many for one message.
  [[nodiscard]] Outcome fetchAll(Cards& cards, const Call& call);
  /// Those cards of these UIDs that are there, in any order.
  [[nodiscard]] Outcome fetch(const std::vector<std::string>& uids, Cards& cards, const Call& call);
  /// Local books take all or none, servers one after the other.
  /// @{
  [[nodiscard]] Outcome add(const Cards& cards, const Call& call);
  [[nodiscard]] Outcome modify(const Cards& cards, const Call& call);
  [[nodiscard]] Outcome remove(const std::vector<std::string>& uids, const Call& call);
  /// @}
  [[nodiscard]] Outcome refresh(const Call& call);

  [[nodiscard]] OVEDSState state() const;
  [[nodiscard]] bool isWritable() const { return isWritable_ && !isGone_; }
  [[nodiscard]] bool isLocal() const { return isLocal_; }
  [[nodiscard]] bool keepsLists() const { return keepsLists_; }
  [[nodiscard]] bool waitsForServer() const { return waitsForServer_; }
  [[nodiscard]] const std::string& uid() const { return uid_; }
  [[nodiscard]] std::string name() const;
  [[nodiscard]] Inbox& inbox() { return inbox_; }
  void setNewsCallback(std::function<void()> callback);

 private:
  friend struct Signals;
  /// The query that every card fits.
  static constexpr const char* kEverything = R"((contains "x-evolution-any-field" ""))";
  /// Whoever makes a call holds it meanwhile, also when the service's process dies.
  struct Client {
    GRef<EBookClient> book;
    GRef<EBookClientView> view;
  };
  Connection(std::shared_ptr<Session> session, GRef<ESource> source);

  [[nodiscard]] std::error_code ensureOpen(const Call& call, std::shared_ptr<Client>& client);
  [[nodiscard]] std::error_code makeClient(const Call& call, std::shared_ptr<Client>& client);
  [[nodiscard]] std::error_code startView(Client& client, const Call& call);
  void watchSource();
  [[nodiscard]] std::shared_ptr<Client> clientOf(GRef<EBookClient> book) const;
  void drop(const std::shared_ptr<Client>& client);
  using Request = std::function<gboolean(EBookClient*, GCancellable*, GError**)>;
  [[nodiscard]] Outcome request(const Call& call, bool mayRepeat, const Request& make);
  [[nodiscard]] Outcome tryRequest(const Call& call, bool mayRepeat, const Request& make);
  [[nodiscard]] Outcome refreshAll(const Call& call);
  [[nodiscard]] bool serverAnswers(GCancellable* cancellable) const;
  [[nodiscard]] bool refreshOnce(const Call& call, const ServiceCall& whole, Outcome& outcome);
  [[nodiscard]] Outcome readCards(const std::string& query, bool mayRepeat, Cards& cards,
                                  const Call& call);
  [[nodiscard]] Outcome readUIDs(std::vector<std::string>& uids, const Call& call);
  void noteWritten(const Outcome& outcome);
  /// A local book has no server that could be away.
  [[nodiscard]] std::error_code meant(std::error_code error) const {
    return isLocal_ && error == OVEDSError::Offline ? OVEDSError::NoService : error;
  }

  void wake();
  void statusChanged();
  void progressed(bool isEnd);
  void died(EClient* book);
  void credentialsRequired(bool isError);
  void removed(const std::string& uid);
  void tell();

  const std::shared_ptr<Session> session_;
  const GRef<ESource> source_;
  const std::string uid_;
  bool isLocal_ = false;
  std::atomic<bool> keepsLists_{false};
  /// Perhaps too large to be read at once.
  std::atomic<bool> isLarge_{false};
  std::atomic<bool> isWritable_{false};
  std::atomic<bool> isGone_{false};
  /// What the server last said to us.
  enum class Access : int { Unknown, Granted, Offline, NeedsCredentials };
  std::atomic<Access> access_{Access::Unknown};
  /// The server could not be reached when it was last tried. The service asks for credentials all
  /// the same.
  std::atomic<bool> isUnreachable_{false};
  std::atomic<bool> waitsForServer_{false};
  Inbox inbox_;

  std::recursive_mutex callbackMutex_;
  std::function<void()> callback_;

  mutable std::mutex mutex_;
  std::shared_ptr<Client> client_;
  std::condition_variable changed_;
  int refreshesEnded_ = 0;
  bool hasBeenOpen_ = false;
  gulong statusHandler_ = 0;
  gulong removedHandler_ = 0;
  gulong credentialsHandler_ = 0;
};

}  // namespace ov::eds
