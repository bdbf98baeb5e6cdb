// Brings panes and document together; each menu has a file of its own. Whether actions are possible
// is asked again for all of them after every change, which is simpler than following each reason.

#include "window/main_window.h"

#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtGui/QCloseEvent>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QFrame>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QVBoxLayout>

#include "live/notice_bar.h"
#include "loading/mailbox.h"

namespace ovcontacts {

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), mailbox_(std::make_shared<Mailbox>(this)) {
  setObjectName(QStringLiteral("main"));
  setAcceptDrops(true);
  makePanes();
  makeProgress();
  makeFileMenu();
  makeEditMenu();
  makeContactMenu();
  makeGroupMenu();
  makeViewMenu();
  watchDocument();
  connect(groups_, &GroupsPane::selectionChosen, this, &MainWindow::chooseByGroup);
  connect(persons_, &PersonsPane::currentPersonChanged, this, [this] {
    const auto person = persons_->currentPerson();
    if (person != sheet_->sheet()->person()) sheet_->setPerson(person);
    enableActions();
  });
  connect(persons_->list()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &MainWindow::enableActions);
  connect(sheet_->list()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &MainWindow::enableActions);
  connect(sheet_, &SheetPane::urlOpened, this, [this](const QUrl& url) {
    if (QDesktopServices::openUrl(url)) return;
    showWrong(tr("\u201c%1\u201d could not be opened.").arg(url.toDisplayString()),
              tr("No program on this computer can open it."));
  });
  connect(sheet_->header(), &SheetHeader::pictureClicked, this, &MainWindow::choosePicture);
  connect(sheet_->header(), &SheetHeader::pictureDropped, this, &MainWindow::setPicture);
  connect(sheet_->header(), &SheetHeader::pictureFileDropped, this, &MainWindow::usePicture);
  resize(1080, 700);
  showBook();
  showTitle();
  showActivity();
}

/// The panes go before the book that they show, and tell nobody.
MainWindow::~MainWindow() {
  mailbox_->close();
  document_.disconnect(this);
  reading_->cancel();
  for (QObject* const pane : findChildren<QObject*>()) pane->disconnect(this);
  delete takeCentralWidget();
}

void MainWindow::makePanes() {
  auto* const splitter = new QSplitter(this);
  splitter->setObjectName(QStringLiteral("panes"));
  splitter->setHandleWidth(1);
  splitter->setChildrenCollapsible(false);
  groups_ = new GroupsPane(splitter);
  persons_ = new PersonsPane(splitter);
  sheet_ = new SheetPane(splitter);
  splitter->setStretchFactor(0, 0);
  splitter->setStretchFactor(1, 0);
  splitter->setStretchFactor(2, 1);
  splitter->setSizes({210, 320, 550});
  auto* const middle = new QWidget(this);
  auto* const layout = new QVBoxLayout(middle);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  notice_ = new NoticeBar(middle);
  layout->addWidget(notice_);
  layout->addWidget(splitter, 1);
  setCentralWidget(middle);
}

void MainWindow::watchDocument() {
  connect(&document_, &Document::bookAboutToChange, this, [this] {
    sheet_->setBook(nullptr);
    groups_->setBook(nullptr);
    persons_->setBook(nullptr);
  });
  connect(&document_, &Document::bookChanged, this, &MainWindow::showBook);
  connect(&document_, &Document::titleChanged, this, &MainWindow::showTitle);
  connect(&document_, &Document::savingChanged, this, [this] {
    document_.saving() == Saving::Nothing ? slowSaving_->stop() : slowSaving_->start();
    showActivity();
  });
  connect(&document_, &Document::saved, this, &MainWindow::showSaved);
}

void MainWindow::showBook() {
  OVQtBook* const book = document_.book();
  groups_->setBook(book);
  persons_->setBook(book);
  sheet_->setBook(book);
  sheet_->setPerson(persons_->currentPerson());
  connect(&book->undoStack(), &QUndoStack::indexChanged, this, &MainWindow::enableActions);
  showLiveBook();
  enableActions();
}

void MainWindow::showTitle() {
  setWindowTitle(document_.title() + QStringLiteral("[*]"));
  setWindowModified(document_.isModified());
  followLiveBook();
}

void MainWindow::chooseByGroup() {
  if (const auto group = groups_->selectedGroup()) {
    persons_->showGroup(group);
  } else if (const auto tag = groups_->selectedTag(); !tag.isNull()) {
    persons_->showTag(tag);
  } else {
    persons_->showEverybody();
  }
  enableActions();
}

void MainWindow::enableActions() {
  for (const auto& [action, isPossible] : conditions_) action->setEnabled(isPossible());
  const auto& stack = document_.book()->undoStack();
  const bool canChange = document_.book()->canChange();
  undo_->setEnabled(canChange && stack.canUndo());
  redo_->setEnabled(canChange && stack.canRedo());
  undo_->setText(stack.canUndo() ? tr("&Undo %1").arg(stack.undoText()) : tr("&Undo"));
  redo_->setText(stack.canRedo() ? tr("&Redo %1").arg(stack.redoText()) : tr("&Redo"));
  const auto person = persons_->currentPerson();
  const QSignalBlocker quiet(isOrganization_);
  isOrganization_->setChecked(person != nullptr && person->isOrganization());
}

QAction* MainWindow::add(QMenu& menu, QWidget* pane, const QString& text, const QKeySequence& keys,
                         const std::function<void()>& run) {
  auto* const action = menu.addAction(text);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, run);
  if (pane == nullptr) return action;
  pane->addAction(action);
  // The same key means something else in each pane.
  if (keys == QKeySequence(QKeySequence::Delete) || keys == QKeySequence(Qt::Key_Return)) {
    action->setShortcutContext(Qt::WidgetShortcut);
  }
  return action;
}

void MainWindow::enableWhile(QAction* action, std::function<bool()> isPossible) {
  conditions_.emplace_back(action, std::move(isPossible));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!mayLeaveBook([this] { close(); })) return event->ignore();
  loader_.cancel();
  event->accept();
}

}  // namespace ovcontacts
