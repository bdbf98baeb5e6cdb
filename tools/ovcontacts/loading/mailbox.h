#pragma once

#include <functional>
#include <memory>
#include <mutex>

class QObject;

namespace ovcontacts {

/// By which other threads have something done on the thread of an object, for as long as that
/// wants to hear of them.
class Mailbox {
 public:
  /// On the owner's thread.
  explicit Mailbox(QObject* owner);

  /// Any thread may call it. Does nothing once the mailbox is closed.
  void post(std::function<void()> letter);
  /// On the owner's thread, before the owner goes: what was posted is not done any more.
  void close();

 private:
  std::mutex mutex_;
  class Reader;
  Reader* reader_;  // null once it is closed
};

/// Does `work`, which must not throw, on a thread of its own; what it returns is done on the
/// mailbox's. Waits for nothing.
void inBackground(std::shared_ptr<Mailbox> mailbox, std::function<std::function<void()>()> work);

}  // namespace ovcontacts
