#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

#include "loading/mailbox.h"

namespace ovcontacts {

/// Lets a thread work with a book that another one owns, each in its turn: while it works the owner
/// waits, and while it waits for somebody else the owner goes on.
class Turns : public std::enable_shared_from_this<Turns> {
 public:
  /// The mailbox is the owner's.
  explicit Turns(std::shared_ptr<Mailbox> mailbox) : mailbox_(std::move(mailbox)) {}

  /// The worker: waits until the owner has come to a halt.
  void take();
  /// The worker: lets the owner go on.
  void giveBack();
  /// The owner: leaves the book to the worker for good.
  void leave();

 private:
  enum class Whose { Owners, Wanted, Workers, OnlyWorkers };
  void halt();

  const std::shared_ptr<Mailbox> mailbox_;
  std::mutex mutex_;
  std::condition_variable changed_;
  Whose whose_ = Whose::Owners;
};

}  // namespace ovcontacts
