#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

#include <OVAddressBookQt/block_book.h>

#include "loading/file_source.h"
#include "loading/live_sources.h"
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
  add(menu, nullptr, tr("&New"), QKeySequence(), [this] { newBook(); });
  add(menu, nullptr, tr("&Open\u2026"), QKeySequence::Open, [this] { chooseFile(); });
  const auto live = liveSources();
  if (!live.empty()) {
    QMenu& books = *menu.addMenu(tr("Open &Live Book"));
    for (const auto& source : live) {
      add(books, nullptr, source->name(), QKeySequence(), [this, source] { open(source); });
    }
  }
  menu.addSeparator();
  add(menu, nullptr, tr("&Save"), QKeySequence::Save, [this] { save(); });
  add(menu, nullptr, tr("Save &As\u2026"), QKeySequence::SaveAs, [this] { saveAs(); });
  add(menu, nullptr, tr("&Export a Copy\u2026"), QKeySequence(), [this] { exportCopy(); });
  menu.addSeparator();
  add(menu, nullptr, tr("&Quit"), QKeySequence::Quit, [this] { close(); });
}

void MainWindow::makeProgress() {
  progress_ = new QProgressBar(this);
  progress_->setAccessibleName(tr("Progress of opening"));
  progress_->setMaximumWidth(260);
  progress_->setTextVisible(false);
  cancel_ = new QToolButton(this);
  cancel_->setText(tr("Cancel"));
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(cancel_);
  endProgress();
  connect(cancel_, &QToolButton::clicked, &loader_, &Loader::cancel);
  connect(&loader_, &Loader::progressed, this, &MainWindow::showProgress);
  connect(&loader_, &Loader::opened, this, &MainWindow::showOpened);
  connect(&loader_, &Loader::cancelled, this, &MainWindow::endProgress);
  connect(&loader_, &Loader::failed, this, [this](const QString& name, const QString& reason) {
    endProgress();
    showWrong(tr("\u201c%1\u201d could not be opened.").arg(name), reason);
  });
}

void MainWindow::showProgress(quint64 done, quint64 all) {
  constexpr int kSteps = 1000;
  progress_->setMaximum(all == 0 ? 0 : kSteps);
  if (all != 0) progress_->setValue(static_cast<int>(done * kSteps / all));
}

void MainWindow::endProgress() {
  progress_->hide();
  cancel_->hide();
  statusBar()->clearMessage();
  statusBar()->hide();
}

void MainWindow::open(std::shared_ptr<BookSource> source) {
  if (!mayLeaveBook()) return;
  statusBar()->show();
  statusBar()->showMessage(tr("Opening \u201c%1\u201d\u2026").arg(source->name()));
  progress_->setMaximum(0);
  progress_->show();
  cancel_->show();
  loader_.start(std::move(source));
}

void MainWindow::openFile(const QString& path) { open(std::make_shared<FileSource>(path)); }

void MainWindow::showOpened(const OpenedBook& opened) {
  endProgress();
  // The book that is here may have been changed while the other was read.
  if (!mayLeaveBook()) return;
  document_.show(opened);
  if (opened.remarks.isEmpty()) return;
  auto* const box = new QMessageBox(
      QMessageBox::Information, QString(),
      tr("Not everything in \u201c%1\u201d could be taken over exactly.").arg(document_.title()),
      QMessageBox::Ok, this);
  box->setDetailedText(opened.remarks);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

void MainWindow::newBook() {
  if (mayLeaveBook()) document_.show({OVBlockBook::init(), Format::Block, {}, {}});
}

void MainWindow::chooseFile() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Open Contacts"), {}, formats());
  if (!path.isEmpty()) openFile(path);
}

bool MainWindow::save() {
  if (document_.path().isEmpty() && document_.format() != Format::Live) return saveAs();
  const QString wrong = document_.save();
  return wrong.isEmpty() || showWrong(tr("The contacts were not saved."), wrong);
}

bool MainWindow::saveAs() {
  const QString path = fileToSave(this, tr("Save Contacts"), document_.path());
  if (path.isEmpty()) return false;
  const QString wrong = document_.saveAs(path);
  return wrong.isEmpty() || showWrong(tr("The contacts were not saved."), wrong);
}

void MainWindow::exportCopy() {
  const QString path = fileToSave(this, tr("Export Contacts"), {});
  if (path.isEmpty()) return;
  const QString wrong = document_.exportTo(path);
  if (!wrong.isEmpty()) showWrong(tr("The contacts were not exported."), wrong);
}

bool MainWindow::mayLeaveBook() {
  if (!document_.isModified()) return true;
  QMessageBox box(QMessageBox::Question, QString(),
                  tr("Save the changes to \u201c%1\u201d?").arg(document_.title()),
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
  box.setInformativeText(tr("Otherwise they are lost."));
  box.setDefaultButton(QMessageBox::Save);
  switch (box.exec()) {
    case QMessageBox::Save:
      return save();
    case QMessageBox::Discard:
      return true;
    default:
      return false;
  }
}

/// False, so that what failed can return it.
bool MainWindow::showWrong(const QString& what, const QString& why) {
  auto* const box = new QMessageBox(QMessageBox::Warning, QString(), what, QMessageBox::Ok, this);
  box->setInformativeText(why);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
  return false;
}

}  // namespace ovcontacts
