#pragma once

#include <QtCore/QAbstractItemModel>
#include <QtCore/QPointer>

#include <memory>

#include <OVAddressBookQt/qt_book.h>

namespace ov::qt {
struct GroupNode;
}

/// The groups of a book with their sub-groups, and its tags, as a tree: everybody; groups; tags.
///
/// A group that is in several others appears in each of them; of groups that make more than 20,000
/// rows that way, or more than 100 levels, the lowest are left out. Names are edited in place where
/// the book can be changed; persons that are dropped on a group or a tag
/// (`OVPersonsFilter::kMimeType`) join it. The tree follows the book: rows come, go and change one
/// by one.
class OVGroupsModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  /// What a row is, as an int.
  enum Kind { Everybody, Groups, Group, Tags, Tag };
  enum Role {
    KindRole = Qt::UserRole + 1,  ///< Kind
    IDRole,                       ///< QString: the group's ID, the tag itself; null for others
  };

  /// Shows the groups and tags of `book`, which may be null and may be destroyed meanwhile.
  explicit OVGroupsModel(OVQtBook* book = nullptr, QObject* parent = nullptr);
  ~OVGroupsModel() override;

  /// Shows another book's; null for none, which leaves no rows.
  void setBook(OVQtBook* book);

  /// Null where the row is not a group.
  [[nodiscard]] OVRef<IOVGroup> groupAt(const QModelIndex& index) const;
  /// Null where the row is not a tag.
  [[nodiscard]] OVString tagAt(const QModelIndex& index) const;
  /// The first row of that kind and ID; invalid when there is none.
  [[nodiscard]] QModelIndex find(Kind kind, const QString& ID = {}) const;

  [[nodiscard]] QModelIndex index(int row, int column,
                                  const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  [[nodiscard]] QStringList mimeTypes() const override;
  [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
  [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                     int column, const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

 private:
  using Node = ov::qt::GroupNode;

  [[nodiscard]] Node& nodeAt(const QModelIndex& index) const;
  [[nodiscard]] QModelIndex indexOf(const Node& node) const;
  [[nodiscard]] std::unique_ptr<Node> currentTree() const;
  void refresh();
  void adopt(Node& shown, Node& current);

  QPointer<OVQtBook> book_;
  std::unique_ptr<Node> root_;
};
