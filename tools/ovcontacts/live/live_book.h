#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

#include <OVAddressBookSDK/address_book.h>

namespace ovcontacts {

/// The state of a live book's connection to its store.
enum class LiveState : std::uint8_t {
  Connected,
  ReadOnly,
  Offline,
  /// The server waits for a password.
  Locked,
  /// The book has been removed.
  Gone,
};

/// A card that was changed here and elsewhere. The book shows the other's.
struct LiveConflict {
  OVString ID;
  /// As vCards; null for the side that removed it.
  /// @{
  OVString ours;
  OVString theirs;
  /// @}
};

enum class LiveChoice : std::uint8_t { Theirs, Ours, Both };

/// What others did to a book.
struct LiveChanges {
  /// Who was here before, and says something else now.
  std::vector<OVRef<IOVPerson>> persons;
  bool hasGroups = false;
  /// Of all persons and groups who came, went and changed.
  std::size_t count = 0;
};

/// How a call of a live book goes.
struct LiveCall {
  /// Runs what waits for the store. The book is not touched meanwhile.
  std::function<void(const std::function<void()>& request)> around;
  std::function<void(std::uint64_t done, std::uint64_t all)> progress;
  std::stop_token stop;
};

/// What a live book can do beside being a book.
class LiveBook {
 public:
  LiveBook() = default;
  LiveBook(const LiveBook&) = delete;
  LiveBook& operator=(const LiveBook&) = delete;
  virtual ~LiveBook() = default;

  /// They may take as long as they need, and give what went wrong in words for people, or "".
  /// @{
  [[nodiscard]] virtual QString save(const LiveCall& call) = 0;
  /// Asks the server, if there is one, for what is new there.
  [[nodiscard]] virtual QString refresh(const LiveCall& call) = 0;
  /// Shows what others have changed; who came and went is also reported on the notification centre.
  [[nodiscard]] virtual QString apply(const LiveCall& call, LiveChanges& changes) = 0;
  /// @}

  [[nodiscard]] virtual std::vector<LiveConflict> conflicts() const = 0;
  virtual void resolve(const OVString& conflictID, LiveChoice choice) = 0;

  /// Any thread may ask.
  /// @{
  [[nodiscard]] virtual LiveState state() const = 0;
  /// Whether others have changed something that is not shown yet.
  [[nodiscard]] virtual bool hasNews() const = 0;
  /// Whether something of ours has not reached the server yet.
  [[nodiscard]] virtual bool waitsForServer() const = 0;
  /// @}
  /// Called on any thread when there are news, or the state is another.
  virtual void setCallback(std::function<void()> callback) = 0;
};

}  // namespace ovcontacts
