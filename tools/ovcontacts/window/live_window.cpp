// What a window does with a live book beyond showing it. Changes by others are applied at once, but
// not while the user is changing something; of all there is to say, one notice is shown.

#include <QtWidgets/QApplication>

#include "dialogs/conflict_dialog.h"
#include "dialogs/password_dialog.h"
#include "live/notice_bar.h"
#include "loading/mailbox.h"
#include "window/main_window.h"

namespace ovcontacts {

void MainWindow::setLiveSources(const std::shared_ptr<LiveSources>& sources) {
  if (liveSources_ != nullptr) liveSources_->setPasswordCallback({});
  liveSources_ = sources;
  liveMenu_->setSources(sources);
  if (sources == nullptr) return;
  sources->setPasswordCallback([this, mailbox = mailbox_](const PasswordRequest& request) {
    mailbox->post([this, request] { askPassword(request); });
  });
}

void MainWindow::showLiveBook() {
  news_.clear();
  hasFailedToFollow_ = false;
  if (LiveKeeper* const keeper = document_.keeper()) {
    connect(keeper, &LiveKeeper::changed, this, &MainWindow::followLiveBook);
    connect(keeper, &LiveKeeper::progressed, this, &MainWindow::showProgress);
    connect(keeper, &LiveKeeper::applied, this, &MainWindow::showApplied);
    // A server shows what is kept here until it has been asked.
    keeper->refresh();
  }
  showNotice();
}

void MainWindow::followLiveBook() {
  LiveKeeper* const keeper = document_.keeper();
  const auto* const focus = QApplication::focusWidget();
  const bool isInUse = document_.isModified() || QApplication::activeModalWidget() != nullptr ||
                       (focus != nullptr && focus != groups_ && groups_->isAncestorOf(focus));
  if (keeper != nullptr && keeper->live().hasNews() && !keeper->isBusy() && !isInUse &&
      !hasFailedToFollow_) {
    keeper->apply();
  }
  showNotice();
  enableActions();
}

void MainWindow::showApplied(qsizetype count, const QString& wrong) {
  hasFailedToFollow_ = !wrong.isEmpty();
  if (count > 0) news_ = tr("Others have changed %n entry(s).", nullptr, static_cast<int>(count));
}

/// What matters most.
void MainWindow::showNotice() {
  LiveKeeper* const keeper = document_.keeper();
  if (keeper == nullptr) return notice_->say({});
  const LiveBook& live = keeper->live();
  const LiveState state = live.state();
  const auto conflicts = live.conflicts().size();
  const auto refresh = [this] { document_.keeper()->refresh(); };
  if (state == LiveState::Gone) {
    notice_->say(tr("This book has been removed. It is shown as it was."), tr("Save As\u2026"),
                 [this] { saveAs(); });
  } else if (conflicts != 0) {
    notice_->say(
        tr("%n entry(s) were changed here and elsewhere.", nullptr, static_cast<int>(conflicts)),
        tr("Decide\u2026"), [this] { decideConflicts(); });
  } else if (live.hasNews() && !keeper->isBusy()) {
    notice_->say(tr("Others have changed this book."), tr("Show Changes"),
                 [this] { document_.keeper()->apply(); });
  } else if (state == LiveState::Locked) {
    notice_->say(
        tr("The server asks for a password. What you save is sent after you have signed in."),
        tr("Sign In\u2026"), refresh);
  } else if (state == LiveState::Offline) {
    notice_->say(tr("The server cannot be reached. The book is shown as it was last seen."),
                 tr("Try Again"), refresh);
  } else if (live.waitsForServer()) {
    notice_->say(tr("Some of what you saved has not reached the server yet."), tr("Try Again"),
                 refresh);
  } else {
    notice_->say(news_, tr("OK"), [this] {
      news_.clear();
      showNotice();
    });
  }
}

void MainWindow::askPassword(const PasswordRequest& request) {
  if (password_ == nullptr) password_ = new PasswordDialog(this);
  // One at a time: a server that is not answered asks again.
  if (password_->isVisible() && passwordFor_ != request.bookID) return;
  passwordFor_ = request.bookID;
  password_->disconnect(this);
  connect(password_, &QDialog::accepted, this, [this, request] {
    request.answer(password_->user(), password_->password());
    if (LiveKeeper* const keeper = document_.keeper()) keeper->refresh();
  });
  password_->show(request);
}

void MainWindow::decideConflicts() {
  LiveKeeper* const keeper = document_.keeper();
  while (keeper == document_.keeper() && !keeper->isBusy()) {
    const auto conflicts = keeper->live().conflicts();
    if (conflicts.empty()) return;
    ConflictDialog dialog(conflicts.front(), this);
    if (dialog.exec() != QDialog::Accepted || keeper != document_.keeper()) return;
    if (dialog.choice() != LiveChoice::Theirs) document_.book()->undoStack().resetClean();
    keeper->resolve(conflicts.front().ID, dialog.choice());
  }
}

}  // namespace ovcontacts
