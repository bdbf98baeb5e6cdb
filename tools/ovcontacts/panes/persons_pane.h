#pragma once

#include <QtWidgets/QListView>
#include <QtWidgets/QWidget>

#include <OVAddressBookQt/persons_filter.h>

class QLabel;
class QLineEdit;

namespace ovcontacts {

/// The filtered persons; those who are dragged away are vCards, too.
class DraggedPersons final : public OVPersonsFilter {
  Q_OBJECT

 public:
  using OVPersonsFilter::OVPersonsFilter;

  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
};

/// The pane of persons, with the search above them.
class PersonsPane final : public QWidget {
  Q_OBJECT

 public:
  explicit PersonsPane(QWidget* parent = nullptr);

  void setBook(OVQtBook* book);
  void showGroup(const OVRef<IOVGroup>& group);
  void showTag(const OVString& tag);
  void showEverybody();

  /// The one who is looked at; null for none.
  [[nodiscard]] OVRef<IOVPerson> currentPerson() const;
  [[nodiscard]] OVQtBook::Persons selectedPersons() const;
  /// Null, and persons who are not shown, select nobody.
  void select(const OVRef<IOVPerson>& person);
  void selectAll() { list_->selectAll(); }
  /// Shows the person, whatever was searched for.
  void reveal(const OVRef<IOVPerson>& person);

  void focusSearch();
  [[nodiscard]] QListView* list() const { return list_; }
  [[nodiscard]] QLineEdit* search() const { return search_; }
  [[nodiscard]] OVPersonsModel* model() { return &model_; }

 signals:
  void currentPersonChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Keeps who is looked at while the rows become others.
  template <class Change>
  void keepingCurrent(Change change);
  void showCount();

  OVPersonsModel model_;
  DraggedPersons filter_{&model_};
  QLineEdit* search_;
  QListView* list_;
  QLabel* count_;
  OVRef<IOVPerson> looksAt_;
  bool isChanging_ = false;
};

}  // namespace ovcontacts
