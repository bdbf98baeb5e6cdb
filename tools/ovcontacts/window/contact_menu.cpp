// The menu of contacts and what it does. A picture is read in the background and given to its
// person by ID: by then the window may show somebody else, or the person may be gone.

#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/person_general.h>

#include "loading/mailbox.h"
#include "loading/picture_file.h"
#include "window/main_window.h"

namespace ovcontacts {

void MainWindow::makeContactMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Contact"));
  const auto canChange = [this] { return document_.book()->canChange(); };
  const auto hasPerson = [this, canChange] {
    return canChange() && persons_->currentPerson() != nullptr;
  };
  const auto hasValue = [this, hasPerson] {
    return hasPerson() && sheet_->list()->currentIndex().flags().testFlag(Qt::ItemIsEditable);
  };
  auto* const newOne =
      add(menu, nullptr, tr("&New Contact"), QKeySequence::New, [this] { newPerson(); });
  enableWhile(newOne, canChange);
  enableWhile(add(menu, persons_->list(), tr("&Remove Contacts"), QKeySequence::Delete,
                  [this] { removePersons(); }),
              hasPerson);
  menu.addSeparator();
  QMenu& values = *menu.addMenu(tr("&Add"));
  sheet_->fill(values);
  values.setObjectName(QStringLiteral("add"));
  enableWhile(values.menuAction(), hasPerson);
  sheet_->list()->addAction(values.menuAction());
  enableWhile(add(menu, sheet_->list(), tr("&Edit Value\u2026"), QKeySequence(Qt::Key_Return),
                  [this] { sheet_->editCurrent(); }),
              hasValue);
  enableWhile(add(menu, sheet_->list(), tr("Re&move Value"), QKeySequence::Delete,
                  [this] { sheet_->removeCurrent(); }),
              hasValue);
  enableWhile(add(menu, sheet_->list(), tr("Ma&ke It the Main One"), QKeySequence(),
                  [this] { sheet_->makeCurrentMain(); }),
              [this, hasValue] {
                return hasValue() &&
                       sheet_->list()->currentIndex().data(OVPersonSheet::SeveralRole).toBool();
              });
  enableWhile(
      add(menu, sheet_->list(), tr("&Open It"), QKeySequence(Qt::CTRL | Qt::Key_Return),
          [this] { sheet_->openCurrent(); }),
      [this] {
        return sheet_->list()->currentIndex().data(OVPersonSheet::URLRole).toUrl().isValid();
      });
  menu.addSeparator();
  enableWhile(
      add(menu, nullptr, tr("Choose &Picture\u2026"), QKeySequence(), [this] { choosePicture(); }),
      hasPerson);
  enableWhile(
      add(menu, nullptr, tr("Remove Pic&ture"), QKeySequence(), [this] { removePicture(); }),
      [this, hasPerson] {
        return hasPerson() && persons_->currentPerson()->thumbnail() != nullptr;
      });
  isOrganization_ = menu.addAction(tr("Is an Or&ganization"));
  isOrganization_->setCheckable(true);
  connect(isOrganization_, &QAction::toggled, this, &MainWindow::setOrganization);
  enableWhile(isOrganization_, hasPerson);

  QToolBar& bar = *addToolBar(tr("Contact"));
  bar.setObjectName(QStringLiteral("bar"));
  bar.setMovable(false);
  bar.setToolButtonStyle(Qt::ToolButtonTextOnly);
  bar.addAction(newOne);
  addButton_ = new QToolButton(&bar);
  addButton_->setText(tr("Add Value"));
  addButton_->setMenu(&values);
  addButton_->setPopupMode(QToolButton::InstantPopup);
  bar.addWidget(addButton_);
  bar.addSeparator();
  bar.addAction(undo_);
  bar.addAction(redo_);
}

void MainWindow::newPerson() {
  OVQtBook& book = *document_.book();
  const auto person = book.addPerson();
  if (person == nullptr) return;
  if (const auto group = groups_->selectedGroup()) book.addToGroup(group, {person});
  if (const auto tag = groups_->selectedTag(); !tag.isNull()) book.addTag(tag, {person});
  persons_->reveal(person);
  sheet_->addValue(ov::qt::qString(OVProPertyName));
}

void MainWindow::removePersons() { document_.book()->removePersons(persons_->selectedPersons()); }

void MainWindow::choosePicture() {
  if (persons_->currentPerson() == nullptr || !document_.book()->canChange()) return;
  const QString path = QFileDialog::getOpenFileName(this, tr("Choose Picture"), {},
                                                    tr("Pictures (*.png *.jpg *.jpeg *.gif)"));
  if (!path.isEmpty()) usePicture(path);
}

void MainWindow::usePicture(const QString& path) {
  const auto person = persons_->currentPerson();
  if (person == nullptr) return;
  inBackground(
      mailbox_, [this, path, id = person->ID(), reading = reading_]() -> std::function<void()> {
        try {
          return [this, id, picture = pictureInFile(path, *reading)] { setPictureOf(id, picture); };
        } catch (const std::exception& error) {
          return [this, path, why = QString::fromUtf8(error.what())] {
            showWrong(
                tr("The picture \u201c%1\u201d cannot be used.").arg(QFileInfo(path).fileName()),
                why);
          };
        }
      });
}

void MainWindow::setPicture(const QByteArray& picture) {
  if (const auto person = persons_->currentPerson()) setPictureOf(person->ID(), picture);
}

void MainWindow::setPictureOf(const OVString& personID, const QByteArray& picture) {
  const auto image = OVImage::imageWithData(OVData::dataWithText(picture.toStdString()));
  const auto property = OVProperty::propertyWithName(OVProPertyThumbnail);
  document_.book()->setValue(document_.book()->personWithID(personID), OVProPertyThumbnail,
                             OVPersonGeneral::singleValueByMacValueProperty(image, property));
}

void MainWindow::removePicture() {
  document_.book()->setValue(persons_->currentPerson(), OVProPertyThumbnail, nullptr);
}

void MainWindow::setOrganization(bool isOrganization) {
  const auto property = OVProperty::propertyWithName(OVProPertyIsOrganization);
  const auto yes = isOrganization
                       ? OVPersonGeneral::singleValueByMacValueProperty(OVString("true"), property)
                       : nullptr;
  document_.book()->setValue(persons_->currentPerson(), OVProPertyIsOrganization, yes);
}

}  // namespace ovcontacts
