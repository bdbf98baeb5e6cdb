// What goes on in the background: books are opened and saved. Whatever would leave a book that is
// being saved waits until it has been saved.

#include <QtCore/QTimer>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

#include "loading/file_source.h"
#include "loading/mailbox.h"
#include "window/main_window.h"

namespace ovcontacts {

void MainWindow::makeProgress() {
  progress_ = new QProgressBar(this);
  progress_->setAccessibleName(tr("Progress of opening and saving"));
  progress_->setMaximumWidth(260);
  progress_->setTextVisible(false);
  cancel_ = new QToolButton(this);
  cancel_->setText(tr("Cancel"));
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(cancel_);
  // Most files are saved before anybody could read that they are being saved.
  constexpr int kPatience = 300;
  slowSaving_ = new QTimer(this);
  slowSaving_->setSingleShot(true);
  slowSaving_->setInterval(kPatience);
  connect(slowSaving_, &QTimer::timeout, this, &MainWindow::showActivity);
  connect(cancel_, &QToolButton::clicked, this, &MainWindow::cancelActivity);
  connect(&loader_, &Loader::progressed, this, &MainWindow::showProgress);
  connect(&loader_, &Loader::opened, this, [this](const OpenedBook& book) {
    showActivity();
    showOpened(book);
  });
  connect(&loader_, &Loader::cancelled, this, &MainWindow::showActivity);
  connect(&loader_, &Loader::failed, this, [this](const QString& name, const QString& reason) {
    showActivity();
    showWrong(tr("\u201c%1\u201d could not be opened.").arg(name), reason);
  });
}

void MainWindow::showProgress(quint64 done, quint64 all) {
  constexpr int kSteps = 1000;
  progress_->setMaximum(all == 0 ? 0 : kSteps);
  if (all != 0) progress_->setValue(static_cast<int>(done * kSteps / all));
}

void MainWindow::showActivity() {
  const bool isSaving = document_.saving() != Saving::Nothing;
  const bool isShown = loader_.isLoading() || (isSaving && !slowSaving_->isActive());
  if (isShown && !progress_->isVisible()) progress_->setMaximum(0);
  progress_->setVisible(isShown);
  cancel_->setVisible(isShown);
  statusBar()->setVisible(isShown);
  if (!isShown) statusBar()->clearMessage();
  if (isShown && !loader_.isLoading()) {
    statusBar()->showMessage(tr("Saving \u201c%1\u201d\u2026").arg(document_.title()));
  }
  enableActions();
}

void MainWindow::cancelActivity() {
  if (loader_.isLoading()) return loader_.cancel();
  afterSaving_ = {};
  document_.stopSaving();
}

void MainWindow::open(const std::shared_ptr<BookSource>& source) {
  if (!mayLeaveBook([this, source] { open(source); })) return;
  loader_.start(source);
  showActivity();
  statusBar()->showMessage(tr("Opening \u201c%1\u201d\u2026").arg(source->name()));
}

void MainWindow::openFile(const QString& path) { open(std::make_shared<FileSource>(path)); }

void MainWindow::showOpened(const OpenedBook& opened) {
  // The book that is here may have been changed while the other was read.
  if (!mayLeaveBook([this, opened] { showOpened(opened); })) return;
  document_.show(opened);
  if (opened.remarks.isEmpty()) return;
  auto* const box = new QMessageBox(
      QMessageBox::Information, QString(),
      tr("Not everything in \u201c%1\u201d could be imported exactly.").arg(document_.title()),
      QMessageBox::Ok, this);
  box->setDetailedText(opened.remarks);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

void MainWindow::showSaved(Saving what, const QString& wrong) {
  const auto then = std::exchange(afterSaving_, {});
  if (wrong.isEmpty()) {
    if (then) mailbox_->post(then);
    return;
  }
  showWrong(what == Saving::Copy ? tr("The contacts were not exported.")
                                 : tr("The contacts were not saved."),
            wrong);
}

bool MainWindow::mayLeaveBook(std::function<void()> later) {
  if (document_.saving() != Saving::Nothing) {
    afterSaving_ = std::move(later);
    return false;
  }
  if (!document_.isModified()) return true;
  QMessageBox box(QMessageBox::Question, QString(),
                  tr("Save the changes to \u201c%1\u201d?").arg(document_.title()),
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
  box.setInformativeText(tr("Otherwise they are lost."));
  box.setDefaultButton(QMessageBox::Save);
  const int answer = box.exec();
  if (answer == QMessageBox::Save && save()) afterSaving_ = std::move(later);
  return answer == QMessageBox::Discard;
}

void MainWindow::showWrong(const QString& what, const QString& why) {
  auto* const box = new QMessageBox(QMessageBox::Warning, QString(), what, QMessageBox::Ok, this);
  box->setInformativeText(why);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace ovcontacts
