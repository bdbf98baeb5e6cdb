#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <vector>

#include "loading/book_source.h"

namespace ovcontacts {

/// A server wants to know who asks.
struct PasswordRequest {
  QString bookID;
  QString bookName;
  QString user;
  /// Whether the server has refused what it was given before.
  bool wasRejected = false;
  /// Any thread may call it, once.
  std::function<void(const QString& user, const QString& password)> answer;
};

/// The live books of the desktop.
class LiveSources {
 public:
  using Sources = std::vector<std::shared_ptr<BookSource>>;

  LiveSources() = default;
  LiveSources(const LiveSources&) = delete;
  LiveSources& operator=(const LiveSources&) = delete;
  virtual ~LiveSources() = default;

  /// May take as long as it needs; any thread. Throws `OpeningError` when nobody knows.
  [[nodiscard]] virtual Sources list() = 0;
  /// Called on any thread for what the servers of opened books ask. To be set before the first is.
  virtual void setPasswordCallback(std::function<void(const PasswordRequest&)> callback) = 0;
};

/// Null where the program is built without live books.
[[nodiscard]] std::shared_ptr<LiveSources> liveSources();

}  // namespace ovcontacts
