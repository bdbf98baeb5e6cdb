#include "loading/mailbox.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaObject>
#include <QtCore/QObject>

#include <thread>
#include <utility>

namespace ovcontacts {

void Mailbox::post(std::function<void()> letter) {
  const std::lock_guard lock(mutex_);
  if (owner_ == nullptr) return;
  QMetaObject::invokeMethod(
      owner_,
      [self = shared_from_this(), letter = std::move(letter)] {
        if (self->owner_ != nullptr) letter();
      },
      Qt::QueuedConnection);
}

void Mailbox::close() {
  const std::lock_guard lock(mutex_);
  owner_ = nullptr;
}

void inBackground(std::shared_ptr<Mailbox> mailbox, std::function<std::function<void()>()> work) {
  std::thread([mailbox = std::move(mailbox), work = std::move(work)] {
    mailbox->post(work());
  }).detach();
}

}  // namespace ovcontacts
