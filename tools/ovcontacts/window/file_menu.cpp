#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

#include <OVAddressBookQt/block_book.h>

#include "window/main_window.h"

namespace ovcontacts {

namespace {

QString formats() {
  return MainWindow::tr("Contacts (*.ovbook *.vcf *.vcard)") + QStringLiteral(";;") +
         MainWindow::tr("All files (*)");
}

QString formatsToSave() {
  return MainWindow::tr("Data block (*.ovbook)") + QStringLiteral(";;") +
         MainWindow::tr("vCards (*.vcf)");
}

QString fileToSave(QWidget* parent, const QString& title, const QString& before) {
  QString chosen;
  QString path = QFileDialog::getSaveFileName(parent, title, before, formatsToSave(), &chosen);
  if (path.isEmpty() || !QFileInfo(path).suffix().isEmpty()) return path;
  return path + (chosen.contains(QLatin1String("vcf")) ? QStringLiteral(".vcf")
                                                       : QStringLiteral(".ovbook"));
}

}  // namespace

void MainWindow::makeFileMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&File"));
  const auto isIdle = [this] { return document_.saving() == Saving::Nothing; };
  add(menu, nullptr, tr("&New"), QKeySequence(), [this] { newBook(); });
  add(menu, nullptr, tr("&Open\u2026"), QKeySequence::Open, [this] { chooseFile(); });
  liveMenu_ = new LiveMenu(&menu);
  menu.addMenu(liveMenu_);
  connect(liveMenu_, &LiveMenu::chosen, this, &MainWindow::open);
  menu.addSeparator();
  enableWhile(add(menu, nullptr, tr("&Save"), QKeySequence::Save, [this] { save(); }), isIdle);
  enableWhile(add(menu, nullptr, tr("Save &As\u2026"), QKeySequence::SaveAs, [this] { saveAs(); }),
              isIdle);
  enableWhile(
      add(menu, nullptr, tr("&Export a Copy\u2026"), QKeySequence(), [this] { exportCopy(); }),
      isIdle);
  enableWhile(add(menu, nullptr, tr("Re&fresh from the Server"), QKeySequence::Refresh,
                  [this] { document_.keeper()->refresh(); }),
              [this] { return document_.keeper() != nullptr; });
  menu.addSeparator();
  add(menu, nullptr, tr("&Quit"), QKeySequence::Quit, [this] { close(); });
}

void MainWindow::newBook() {
  if (!mayLeaveBook([this] { newBook(); })) return;
  document_.show({OVBlockBook::init(), Format::Block, {}, {}});
}

void MainWindow::chooseFile() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Open Contacts"), {}, formats());
  if (!path.isEmpty()) openFile(path);
}

bool MainWindow::save() {
  if (document_.path().isEmpty() && document_.keeper() == nullptr) return saveAs();
  groups_->endEditing();
  document_.save();
  return true;
}

bool MainWindow::saveAs() {
  const QString path = fileToSave(this, tr("Save Contacts"), document_.path());
  if (!path.isEmpty()) document_.saveAs(path);
  return !path.isEmpty();
}

void MainWindow::exportCopy() {
  const QString path = fileToSave(this, tr("Export Contacts"), {});
  if (!path.isEmpty()) document_.exportTo(path);
}

}  // namespace ovcontacts
