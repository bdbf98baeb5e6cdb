#pragma once

#include <QtCore/QAbstractListModel>
#include <QtCore/QPointer>

#include <functional>
#include <optional>
#include <vector>

#include <OVAddressBookQt/qt_book.h>
#include <OVAddressBookSDK/single_value.h>

/// The sheet of one person: a row for each value, in the order of the catalogue. The thumbnail has
/// no row, nor has a person who is not an organisation one that says so.
///
/// It keeps references to the person's values and asks them for everything else. Where the book can
/// be changed, values, labels and main values are set by `setData`, through `OVQtBook`, so that
/// they can be undone.
class OVPersonSheet : public QAbstractListModel {
  Q_OBJECT

 public:
  /// Beside `Qt::DisplayRole`, the value as people read it, and `Qt::EditRole`, the value as
  /// `ov::qt::editedFormOf` gives it; setting nothing there removes the row.
  enum Role {
    PropertyRole = Qt::UserRole + 1,  ///< QString: the property, as shown
    PropertyNameRole,                 ///< QString: its name
    LabelRole,                        ///< QString, to be set where there may be several values
    TypeRole,                         ///< int: the `OVValueType` of the datum
    MainRole,                         ///< bool: of several rows the main one; true can be set
    SeveralRole,                      ///< bool: whether the property may have several values
    URLRole,                          ///< QUrl: what a click opens; invalid for nothing
  };

  /// How an entry of "Other" reads: label and text; nothing for one that says nothing to people.
  using Readable =
      std::function<std::optional<std::pair<OVString, OVString>>(const OVSingleValue&)>;

  /// Shows a person of `book`, which may be null and may be destroyed meanwhile.
  explicit OVPersonSheet(OVQtBook* book = nullptr, QObject* parent = nullptr);

  /// Shows persons of another book; nobody at first.
  void setBook(OVQtBook* book);
  /// Null shows nobody.
  void setPerson(const OVRef<IOVPerson>& person);
  [[nodiscard]] const OVRef<IOVPerson>& person() const { return person_; }
  /// For books that keep more than texts in "Other". Takes effect with the next person.
  void setReadable(Readable readable) { readable_ = std::move(readable); }

  /// A value more, or the one of a property that has but one. Gives its row; -1 when nothing came
  /// of it. `label` is for properties that may have several.
  int addValue(const QString& property, const QString& label, const QVariant& edited);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  bool removeRows(int row, int count, const QModelIndex& parent = {}) override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 private:
  struct Row {
    OVRef<OVProperty> property;
    OVRef<OVSingleValue> entry;
    [[nodiscard]] bool isSame(const Row& other) const {
      return property == other.property && entry == other.entry;
    }
  };

  [[nodiscard]] std::vector<Row> currentRows() const;
  void refresh();
  [[nodiscard]] bool isMain(const Row& row) const;
  [[nodiscard]] bool canChange(const Row& row) const;
  [[nodiscard]] QString labelOf(const Row& row) const;
  [[nodiscard]] QString textOf(const Row& row) const;
  /// Replaces the row's entry with `entry`; null removes it.
  bool replace(const Row& row, const OVRef<OVSingleValue>& entry);
  bool makeMain(const Row& row);

  QPointer<OVQtBook> book_;
  OVRef<IOVPerson> person_;
  Readable readable_;
  std::vector<Row> rows_;
};
