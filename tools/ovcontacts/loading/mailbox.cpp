#include "loading/mailbox.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QObject>

#include <thread>
#include <utility>

namespace ovcontacts {

namespace {

class Letter final : public QEvent {
 public:
  explicit Letter(std::function<void()> text) : QEvent(User), text_(std::move(text)) {}
  void read() const { text_(); }

 private:
  std::function<void()> text_;
};

}  // namespace

class Mailbox::Reader final : public QObject {
 public:
  using QObject::QObject;
  bool isOpen = true;

 protected:
  bool event(QEvent* event) override {
    const auto* const letter = dynamic_cast<const Letter*>(event);
    if (letter == nullptr) return QObject::event(event);
    if (isOpen) letter->read();
    return true;
  }
};

Mailbox::Mailbox(QObject* owner) : reader_(new Reader(owner)) {}  // the owner's, until it is closed

void Mailbox::post(std::function<void()> letter) {
  const std::lock_guard lock(mutex_);
  if (reader_ == nullptr) return;
  // The queue's from now on.
  QCoreApplication::postEvent(reader_, new Letter(std::move(letter)));
}

void Mailbox::close() {
  const std::lock_guard lock(mutex_);
  if (reader_ == nullptr) return;
  reader_->isOpen = false;
  reader_->deleteLater();
  reader_ = nullptr;
}

void inBackground(std::shared_ptr<Mailbox> mailbox, std::function<std::function<void()>()> work) {
  std::thread([mailbox = std::move(mailbox), work = std::move(work)] {
    mailbox->post(work());
  }).detach();
}

}  // namespace ovcontacts
