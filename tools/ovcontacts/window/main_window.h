#pragma once

#include <QtWidgets/QMainWindow>

#include <memory>

#include "document.h"
#include "live/live_menu.h"
#include "loading/loader.h"
#include "panes/groups_pane.h"
#include "panes/persons_pane.h"
#include "panes/sheet_pane.h"

class QProgressBar;
class QTimer;
class QToolButton;

namespace ovcontacts {

class NoticeBar;
class PasswordDialog;

/// A window with one book: groups and tags, persons, and the sheet of one of them.
class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(QWidget* parent = nullptr);
  ~MainWindow() override;

  [[nodiscard]] Document& document() { return document_; }
  [[nodiscard]] Loader& loader() { return loader_; }
  [[nodiscard]] GroupsPane& groups() { return *groups_; }
  [[nodiscard]] PersonsPane& persons() { return *persons_; }
  [[nodiscard]] SheetPane& sheet() { return *sheet_; }
  [[nodiscard]] NoticeBar& notice() { return *notice_; }

  /// Opens a book in the place of the one that is shown, whose changes are asked about before.
  void open(const std::shared_ptr<BookSource>& source);
  void openFile(const QString& path);
  /// The live books that can be opened; null for none.
  void setLiveSources(const std::shared_ptr<LiveSources>& sources);
  /// Adds the persons in vCards to the book, as one change.
  void addCards(const QByteArray& cards);
  /// Adds those in files, as one change.
  void addFiles(const QStringList& paths);
  /// Gives the person who is looked at the picture in a file.
  void usePicture(const QString& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void makePanes();
  void makeProgress();
  void watchDocument();
  // Menus, each in a file with what it does.
  void makeFileMenu();
  void makeEditMenu();
  void makeContactMenu();
  void makeGroupMenu();
  void makeViewMenu();

  void showBook();
  void showTitle();
  void chooseByGroup();
  void enableActions();
  void showOpened(const OpenedBook& opened);
  void showProgress(quint64 done, quint64 all);
  /// Shows whether something is being opened or saved.
  void showActivity();
  void cancelActivity();

  void newBook();
  void chooseFile();
  /// This and the next return false when the user cancels.
  bool save();
  bool saveAs();
  void exportCopy();
  void showSaved(Saving what, const QString& wrong);
  /// False when the window is to stay as it is; then `later` is called once what is being saved
  /// has been saved.
  bool mayLeaveBook(std::function<void()> later);
  void showWrong(const QString& what, const QString& why);

  void showLiveBook();
  /// Shows what others have changed, unless somebody is about to change the book.
  void followLiveBook();
  void showNotice();
  void showApplied(qsizetype count, const QString& wrong);
  void askPassword(const PasswordRequest& request);
  void decideConflicts();

  void newPerson();
  void removePersons();
  void choosePicture();
  void setPicture(const QByteArray& picture);
  void setPictureOf(const OVString& personID, const QByteArray& picture);
  void addAll(const std::vector<OVRef<OVAddressBook>>& books);
  void removePicture();
  void setOrganization(bool isOrganization);
  void newGroup(const OVRef<IOVGroup>& parent);
  void removeGroupOrTag();
  void removeFromGroupOrTag();
  void addTag();

  /// An action of a menu, also in the context menu of a pane unless that is null.
  QAction* add(QMenu& menu, QWidget* pane, const QString& text, const QKeySequence& keys,
               const std::function<void()>& run);
  /// One that is enabled while `isPossible`.
  void enableWhile(QAction* action, std::function<bool()> isPossible);

  Document document_;
  Loader loader_;
  std::shared_ptr<Mailbox> mailbox_;
  std::shared_ptr<LiveSources> liveSources_;
  /// Of files that are read for something else than to open them.
  const std::shared_ptr<Cancellation> reading_ = std::make_shared<Cancellation>();
  GroupsPane* groups_ = nullptr;
  PersonsPane* persons_ = nullptr;
  SheetPane* sheet_ = nullptr;
  NoticeBar* notice_ = nullptr;
  LiveMenu* liveMenu_ = nullptr;
  PasswordDialog* password_ = nullptr;
  QString passwordFor_;
  QString news_;
  bool hasFailedToFollow_ = false;
  std::function<void()> afterSaving_;
  QTimer* slowSaving_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QToolButton* cancel_ = nullptr;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  QAction* isOrganization_ = nullptr;
  QToolButton* addButton_ = nullptr;
  std::vector<std::pair<QAction*, std::function<bool()>>> conditions_;
};

}  // namespace ovcontacts
