#include <QtGui/QActionGroup>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

#include <OVAddressBookSDK/address_book.h>

#include "window/main_window.h"

namespace ovcontacts {

void MainWindow::makeEditMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Edit"));
  undo_ = add(menu, nullptr, tr("&Undo"), QKeySequence::Undo,
              [this] { document_.book()->undoStack().undo(); });
  redo_ = add(menu, nullptr, tr("&Redo"), QKeySequence::Redo,
              [this] { document_.book()->undoStack().redo(); });
  menu.addSeparator();
  add(menu, nullptr, tr("&Find"), QKeySequence::Find, [this] { persons_->focusSearch(); });
  add(menu, persons_->list(), tr("Select &All Contacts"),
      QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A), [this] { persons_->selectAll(); });
}

void MainWindow::makeViewMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&View"));
  auto* const lastInFront = add(menu, nullptr, tr("&Last Name First"), QKeySequence(), [] {});
  lastInFront->setCheckable(true);
  lastInFront->setObjectName(QStringLiteral("lastNameFirst"));
  lastInFront->setChecked(OVAddressBook::lastNameInFront());
  connect(lastInFront, &QAction::toggled, this,
          [](bool isOn) { OVAddressBook::setlastNameInFront(isOn); });
  // The preference is everybody's: it may change elsewhere.
  connect(&menu, &QMenu::aboutToShow, lastInFront, [lastInFront] {
    const QSignalBlocker quiet(lastInFront);
    lastInFront->setChecked(OVAddressBook::lastNameInFront());
  });
  menu.addSeparator();
  auto* const orders = new QActionGroup(this);
  const auto order = [&](const QString& text, OVPersonOrder by) {
    auto* const action = add(menu, nullptr, text, QKeySequence(), [this, by] {
      const auto person = persons_->currentPerson();
      persons_->model()->setOrder(by);
      persons_->select(person);
    });
    action->setCheckable(true);
    action->setChecked(by == OVPersonOrder::Name);
    orders->addAction(action);
  };
  order(tr("Sort by &Name"), OVPersonOrder::Name);
  order(tr("Sort by &Company"), OVPersonOrder::Company);
  order(tr("In the Order of the &Book"), OVPersonOrder::None);
}

}  // namespace ovcontacts
