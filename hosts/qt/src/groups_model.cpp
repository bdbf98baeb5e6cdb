// After a change the whole tree is built again, and the shown one adopts the rows that differ, so
// that views keep what is selected and open.

#include <OVAddressBookQt/groups_model.h>

#include <QtCore/QMimeData>

#include <algorithm>

#include <OVAddressBookQt/persons_filter.h>
#include <OVAddressBookQt/qt_text.h>

#include "group_node.h"

using ov::qt::ovString;
using ov::qt::qString;

OVGroupsModel::OVGroupsModel(OVQtBook* book, QObject* parent)
    : QAbstractItemModel(parent), root_(std::make_unique<Node>()) {
  setBook(book);
}

OVGroupsModel::~OVGroupsModel() = default;

void OVGroupsModel::setBook(OVQtBook* book) {
  beginResetModel();
  if (book_ != nullptr) book_->disconnect(this);
  book_ = book;
  root_ = currentTree();
  endResetModel();
  if (book == nullptr) return;
  connect(book, &OVQtBook::groupsChanged, this, &OVGroupsModel::refresh);
  connect(book, &OVQtBook::tagsChanged, this, &OVGroupsModel::refresh);
  connect(book, &QObject::destroyed, this, [this] {
    beginResetModel();
    book_.clear();
    root_ = currentTree();
    endResetModel();
  });
}

std::unique_ptr<OVGroupsModel::Node> OVGroupsModel::currentTree() const {
  return book_ == nullptr ? std::make_unique<Node>() : ov::qt::groupTreeOf(*book_);
}

void OVGroupsModel::refresh() {
  const auto current = currentTree();
  adopt(*root_, *current);
}

/// Makes the rows below `shown` those below `current`.
void OVGroupsModel::adopt(Node& shown, Node& current) {
  for (int row = static_cast<int>(shown.children.size()); row-- > 0;) {
    const auto& child = shown.children[static_cast<std::size_t>(row)];
    const bool stays = std::any_of(current.children.begin(), current.children.end(),
                                   [&](const auto& each) { return each->isSame(*child); });
    if (stays) continue;
    beginRemoveRows(indexOf(shown), row, row);
    shown.children.erase(shown.children.begin() + row);
    endRemoveRows();
  }
  for (int row = 0; row < static_cast<int>(current.children.size()); ++row) {
    auto& wanted = current.children[static_cast<std::size_t>(row)];
    const auto start = shown.children.begin() + row;
    const auto at = std::find_if(start, shown.children.end(),
                                 [&](const auto& each) { return each->isSame(*wanted); });
    if (at == shown.children.end()) {
      beginInsertRows(indexOf(shown), row, row);
      shown.add(std::move(wanted), row);
      endInsertRows();
      continue;
    }
    if (at != start) {
      const int from = static_cast<int>(at - shown.children.begin());
      beginMoveRows(indexOf(shown), from, from, indexOf(shown), row);
      std::rotate(start, at, at + 1);
      endMoveRows();
    }
    Node& same = *shown.children[static_cast<std::size_t>(row)];
    if (same.name != wanted->name) {
      same.name = wanted->name;
      emit dataChanged(indexOf(same), indexOf(same));
    }
    adopt(same, *wanted);
  }
}

OVGroupsModel::Node& OVGroupsModel::nodeAt(const QModelIndex& index) const {
  return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *root_;
}

QModelIndex OVGroupsModel::indexOf(const Node& node) const {
  return &node == root_.get() ? QModelIndex() : createIndex(node.row(), 0, &node);
}

OVRef<IOVGroup> OVGroupsModel::groupAt(const QModelIndex& index) const {
  return nodeAt(index).group;
}

OVString OVGroupsModel::tagAt(const QModelIndex& index) const {
  const Node& node = nodeAt(index);
  return node.kind == Tag ? node.name : OVString();
}

QModelIndex OVGroupsModel::find(Kind kind, const QString& ID) const {
  std::vector<const Node*> open{root_.get()};
  while (!open.empty()) {
    const Node* const node = open.back();
    open.pop_back();
    const bool isIt = node != root_.get() && node->kind == kind &&
                      (ID.isNull() || indexOf(*node).data(IDRole).toString() == ID);
    if (isIt) return indexOf(*node);
    std::transform(node->children.rbegin(), node->children.rend(), std::back_inserter(open),
                   [](const auto& child) { return child.get(); });
  }
  return {};
}

QModelIndex OVGroupsModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, nodeAt(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex OVGroupsModel::parent(const QModelIndex& index) const {
  return index.isValid() ? indexOf(*nodeAt(index).parent) : QModelIndex();
}

int OVGroupsModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(nodeAt(parent).children.size());
}

int OVGroupsModel::columnCount(const QModelIndex& /*parent*/) const { return 1; }

QVariant OVGroupsModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Node& node = nodeAt(index);
  if (role == KindRole) return node.kind;
  if (role == IDRole) return qString(node.group == nullptr ? node.name : node.group->ID());
  if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::AccessibleTextRole) return {};
  switch (node.kind) {
    case Everybody:
      return tr("All Contacts");
    case Groups:
      return tr("Groups");
    case Tags:
      return tr("Tags");
    default:
      return qString(node.name);
  }
}

bool OVGroupsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || book_ == nullptr || !index.isValid()) return false;
  const Node& node = nodeAt(index);
  const OVString name = ovString(value.toString().trimmed());
  if (name.empty()) return false;
  if (node.kind == Group) return book_->renameGroup(node.group, name);
  return node.kind == Tag && book_->renameTag(OVString(node.name), name);
}

Qt::ItemFlags OVGroupsModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Kind kind = nodeAt(index).kind;
  if (kind == Groups || kind == Tags) return Qt::ItemIsEnabled;
  const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (kind == Everybody || book_ == nullptr || !book_->canChange()) return usual;
  return usual | Qt::ItemIsEditable | Qt::ItemIsDropEnabled;
}

QHash<int, QByteArray> OVGroupsModel::roleNames() const {
  auto names = QAbstractItemModel::roleNames();
  names.insert({{KindRole, "kind"}, {IDRole, "groupID"}});
  return names;
}

QStringList OVGroupsModel::mimeTypes() const { return {OVPersonsFilter::kMimeType}; }

bool OVGroupsModel::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/,
                                    int /*column*/, const QModelIndex& parent) const {
  return data != nullptr && data->hasFormat(OVPersonsFilter::kMimeType) && parent.isValid() &&
         flags(parent).testFlag(Qt::ItemIsDropEnabled);
}

bool OVGroupsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                 const QModelIndex& parent) {
  if (!canDropMimeData(data, action, row, column, parent)) return false;
  OVQtBook::Persons persons;
  for (const QByteArray& id : data->data(OVPersonsFilter::kMimeType).split('\n')) {
    if (auto person = book_->personWithID(id.toStdString())) persons.push_back(std::move(person));
  }
  const Node& node = nodeAt(parent);
  return node.kind == Group ? book_->addToGroup(node.group, persons)
                            : book_->addTag(OVString(node.name), persons);
}
