#pragma once

#include <QtWidgets/QMainWindow>

#include <memory>

#include "document.h"
#include "loading/loader.h"
#include "panes/groups_pane.h"
#include "panes/persons_pane.h"
#include "panes/sheet_pane.h"

class QProgressBar;
class QToolButton;

namespace ovcontacts {

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

  /// Opens a book in the place of the one that is shown, whose changes are asked about before.
  void open(std::shared_ptr<BookSource> source);
  void openFile(const QString& path);
  /// Adds the persons in vCards to the book, as one change.
  void addCards(const QByteArray& cards);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void makePanes();
  void makeProgress();
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
  void endProgress();

  void newBook();
  void chooseFile();
  bool save();
  bool saveAs();
  void exportCopy();
  /// False when the user wants to keep the window as it is.
  bool mayLeaveBook();
  bool showWrong(const QString& what, const QString& why);

  void newPerson();
  void removePersons();
  void choosePicture();
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
  GroupsPane* groups_ = nullptr;
  PersonsPane* persons_ = nullptr;
  SheetPane* sheet_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QToolButton* cancel_ = nullptr;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  QAction* isOrganization_ = nullptr;
  QToolButton* addButton_ = nullptr;
  std::vector<std::pair<QAction*, std::function<bool()>>> conditions_;
};

}  // namespace ovcontacts
