// Passes on, on the thread of the book, what is reported through the notification centre from any
// thread. What the book itself does is reported by its steps, and not once more.

#include <OVAddressBookQt/qt_book.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QThread>

#include <OVAddressBookSDK/notification_names.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "qt_book_inner.h"

using ov::qt::BookSteps;

namespace {

/// What another thread reported, to be passed on on ours.
class Report final : public QEvent {
 public:
  explicit Report(std::function<void()> tell) : QEvent(User), tell_(std::move(tell)) {}
  void tell() const { tell_(); }

 private:
  std::function<void()> tell_;
};

}  // namespace

OVQtBook::OVQtBook(OVRef<OVAddressBook> book, QObject* parent)
    : QObject(parent), inner_(std::make_unique<Inner>(BookSteps{*this, std::move(book), {}})) {
  const auto center = OVNotificationCenter::defaultCenter();
  inner_->ear->book = this;
  const auto hear = [&](const OVString& name, auto tell) {
    const auto onOurThread = [ear = inner_->ear, about = inner_->steps.book,
                              tell](const OVNotification& notification) {
      if (notification.object != nullptr && notification.object != about) return;
      const auto person =
          ov::cast<IOVPerson>(notification.userInfo[OVChangeNameNotification_PersonKey]);
      std::unique_lock lock(ear->mutex);
      OVQtBook* const shown = ear->book;
      if (shown == nullptr) return;
      if (QThread::currentThread() != shown->thread()) {
        // The queue's from now on.
        QCoreApplication::postEvent(shown, new Report([tell, person] { tell(person); }));
        return;
      }
      lock.unlock();
      if (!shown->inner_->isReporting) tell(person);
    };
    inner_->observers.push_back(center->addObserver(name, onOurThread));
  };
  const auto change = [this](const OVString& property) {
    return [this, property](const OVRef<IOVPerson>& person) {
      person == nullptr ? emit personsReset() : emit personChanged(person, property);
    };
  };
  hear(OVPersonChangeNameNotification, change(OVProPertyName));
  hear(OVPersonChangePhoneNotification, change(OVProPertyPhone));
  hear(OVPersonChangeEmailNotification, change(OVProPertyEmail));
  hear(OVPersonChangeAllPersonNotification, [this](const OVRef<IOVPerson>&) {
    emit personsReset();
    emit groupsChanged();
    emit tagsChanged();
  });
  hear(OV_LastNmaeFrontChange_notification,
       [this](const OVRef<IOVPerson>&) { emit nameOrderChanged(); });
  connect(this, &OVQtBook::personChanged, this,
          [this](const OVRef<IOVPerson>& person, const OVString& property) {
            const OVString name = ov::qt::notificationFor(property);
            if (name.isNull() || person == nullptr || inner_->isReporting) return;
            const auto about = OVDictionary<OVObject>::dictionary();
            about.set(OVChangeNameNotification_PersonKey, person);
            inner_->isReporting = true;
            OVNotificationCenter::defaultCenter()->postNotificationName(name, inner_->steps.book,
                                                                        about);
            inner_->isReporting = false;
          });
}

OVQtBook::~OVQtBook() {
  {
    const std::lock_guard lock(inner_->ear->mutex);
    inner_->ear->book = nullptr;
  }
  inner_->observers.clear();
  inner_->stack.blockSignals(true);  // its end is not a change of the book
}

bool OVQtBook::event(QEvent* event) {
  const auto* const report = dynamic_cast<const Report*>(event);
  if (report == nullptr) return QObject::event(event);
  report->tell();
  return true;
}

const OVRef<OVAddressBook>& OVQtBook::book() const { return inner_->steps.book; }

bool OVQtBook::canChange() const { return !inner_->isReadOnly && book()->canOprate(); }

void OVQtBook::setReadOnly(bool isReadOnly) { inner_->isReadOnly = isReadOnly; }

bool OVQtBook::hasTags() const { return book()->tagManager() != nullptr; }

OVRef<IOVPerson> OVQtBook::personWithID(const OVString& ID) const {
  return ID.isNull() ? nullptr : inner_->steps.person(ID);
}

QUndoStack& OVQtBook::undoStack() { return inner_->stack; }
