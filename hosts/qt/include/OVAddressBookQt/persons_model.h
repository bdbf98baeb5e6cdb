#pragma once

#include <QtCore/QAbstractListModel>
#include <QtCore/QPointer>

#include <vector>

#include <OVAddressBookQt/qt_book.h>
#include <OVAddressBookSDK/person_sorter.h>

/// The persons of a book, one row each, in order: by name by default.
///
/// It keeps a reference to each person and asks the person for everything else: 16 bytes a person.
/// It follows the book's changes and the name order; a person whose name changes moves to its new
/// place.
class OVPersonsModel : public QAbstractListModel {
  Q_OBJECT

 public:
  /// Beside what `Qt::DisplayRole` gives, the heading: what lists call the person; "" for a person
  /// of whom nothing is known.
  enum Role {
    IDRole = Qt::UserRole + 1,  ///< QString
    BelowRole,                  ///< QString: what is below the heading, if anything
    SortKeyRole,                ///< QByteArray: orders as the list by name does
    ThumbnailRole,              ///< QByteArray: the encoded image; null for none
    MainPhoneRole,              ///< QString
    MainEmailRole,              ///< QString
    CompanyRole,                ///< QString
  };

  /// Shows the persons of `book`, which may be null and may be destroyed while it is shown.
  explicit OVPersonsModel(OVQtBook* book = nullptr, QObject* parent = nullptr);

  /// Shows another book's persons; null for none.
  void setBook(OVQtBook* book);
  [[nodiscard]] OVQtBook* book() const { return book_.data(); }
  void setOrder(OVPersonOrder order);
  [[nodiscard]] OVPersonOrder order() const { return order_; }

  /// Null outside the list.
  [[nodiscard]] OVRef<IOVPerson> personAt(int row) const;
  /// -1 for a person who is not here.
  [[nodiscard]] int rowOf(const OVRef<IOVPerson>& person) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  void fill();
  void add(const OVRef<IOVPerson>& person);
  void remove(const OVRef<IOVPerson>& person);
  void change(const OVRef<IOVPerson>& person);
  /// Where the person belongs among the others, `without` left aside.
  [[nodiscard]] int placeOf(const IOVPerson& person, int without) const;

  QPointer<OVQtBook> book_;
  OVPersonOrder order_ = OVPersonOrder::Name;
  std::vector<OVRef<IOVPerson>> persons_;
};
