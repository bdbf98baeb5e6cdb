#pragma once

#include <QtGui/QUndoCommand>

#include <functional>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include <OVAddressBookQt/qt_book.h>
#include <OVAddressBookSDK/notification_center.h>

#include "book_steps.h"

namespace ov::qt {

/// A change as two calls.
class Command final : public QUndoCommand {
 public:
  Command(const QString& text, std::function<void()> redo, std::function<void()> undo)
      : QUndoCommand(text), redo_(std::move(redo)), undo_(std::move(undo)) {}

  void redo() override { redo_(); }
  void undo() override { undo_(); }

 private:
  std::function<void()> redo_;
  std::function<void()> undo_;
};

[[nodiscard]] inline IDs idsOf(const OVQtBook::Persons& persons) {
  IDs ids;
  for (const auto& person : persons) {
    if (person != nullptr) ids.push_back(person->ID());
  }
  return ids;
}

/// Where a book hears what is reported. It may outlive the book, in the middle of a delivery.
struct Ear {
  std::mutex mutex;
  OVQtBook* book = nullptr;  // null once the book is gone
};

}  // namespace ov::qt

struct OVQtBook::Inner {
  explicit Inner(ov::qt::BookSteps itsSteps) : steps(std::move(itsSteps)) {}

  ov::qt::BookSteps steps;
  QUndoStack stack;
  std::vector<OVNotificationObserver> observers;
  std::shared_ptr<ov::qt::Ear> ear = std::make_shared<ov::qt::Ear>();
  bool isReporting = false;
  bool isReadOnly = false;

  void push(const QString& text, std::function<void()> redo, std::function<void()> undo) {
    stack.push(
        new ov::qt::Command(text, std::move(redo), std::move(undo)));  // the stack's from now on
  }
};
