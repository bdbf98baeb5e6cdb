#pragma once

#include <QtCore/QUrl>
#include <QtWidgets/QListView>
#include <QtWidgets/QWidget>

#include <OVAddressBookQt/person_sheet.h>

class QLabel;
class QMenu;
class QToolButton;

namespace ovcontacts {

/// A person's picture and name above the sheet.
class SheetHeader final : public QWidget {
  Q_OBJECT

 public:
  explicit SheetHeader(QWidget* parent = nullptr);
  void show(const OVRef<IOVPerson>& person);

 signals:
  /// The picture was clicked.
  void pictureClicked();
  /// Encoded as a PNG.
  void pictureDropped(const QByteArray& picture);
  void pictureFileDropped(const QString& path);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] QRect picturePlace() const;

  QLabel* name_;
  QLabel* below_;
  QByteArray picture_;
};

/// The pane of one person: what is known, to be read, edited and followed.
class SheetPane final : public QWidget {
  Q_OBJECT

 public:
  explicit SheetPane(QWidget* parent = nullptr);

  void setBook(OVQtBook* book);
  void setPerson(const OVRef<IOVPerson>& person);
  [[nodiscard]] OVPersonSheet* sheet() { return &sheet_; }
  [[nodiscard]] QListView* list() const { return list_; }
  [[nodiscard]] SheetHeader* header() const { return header_; }

  /// Asks for a value of the property, by its name, and adds it.
  void addValue(const QString& property);
  /// Asks for the current value again.
  void editCurrent();
  void removeCurrent();
  void makeCurrentMain();
  void openCurrent();
  /// The properties that a value can be added to, as a menu.
  void fill(QMenu& menu);

 signals:
  void urlOpened(const QUrl& url);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refreshHeader();
  [[nodiscard]] bool isOnLink(const QPoint& point) const;

  OVQtBook* book_ = nullptr;
  OVPersonSheet sheet_;
  SheetHeader* header_;
  QListView* list_;
};

}  // namespace ovcontacts
