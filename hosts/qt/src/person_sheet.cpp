// After a change all rows are made again, and only those that differ are inserted or removed, so
// that views keep what is selected.

#include <OVAddressBookQt/person_sheet.h>

#include <QtCore/QUrl>

#include <algorithm>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_heading.h>

using ov::qt::ovString;
using ov::qt::qString;

OVPersonSheet::OVPersonSheet(OVQtBook* book, QObject* parent) : QAbstractListModel(parent) {
  setBook(book);
}

void OVPersonSheet::setBook(OVQtBook* book) {
  setPerson(nullptr);
  if (book_ != nullptr) book_->disconnect(this);
  book_ = book;
  if (book == nullptr) return;
  connect(book, &OVQtBook::personChanged, this, [this](const OVRef<IOVPerson>& person) {
    if (person == person_) refresh();
  });
  connect(book, &OVQtBook::personRemoved, this, [this](const OVRef<IOVPerson>& person) {
    if (person == person_) setPerson(nullptr);
  });
  connect(book, &OVQtBook::tagsChanged, this, &OVPersonSheet::refresh);
  connect(book, &OVQtBook::personsReset, this, &OVPersonSheet::refresh);
  connect(book, &QObject::destroyed, this, [this] {
    book_.clear();
    setPerson(nullptr);
  });
  connect(book, &OVQtBook::nameOrderChanged, this, [this] {
    if (!rows_.empty()) emit dataChanged(index(0), index(rowCount() - 1));
  });
}

void OVPersonSheet::setPerson(const OVRef<IOVPerson>& person) {
  beginResetModel();
  person_ = person;
  rows_ = currentRows();
  endResetModel();
}

std::vector<OVPersonSheet::Row> OVPersonSheet::currentRows() const {
  std::vector<Row> rows;
  if (person_ == nullptr) return rows;
  for (const auto& property : OVProperty::StandardPropertyArray()) {
    if (property->name() == OVProPertyThumbnail) continue;
    if (property->name() == OVProPertyIsOrganization && !ov::isOrganization(*person_)) continue;
    const auto value = person_->valueByProperty(property);
    const auto add = [&](const OVRef<OVSingleValue>& entry) {
      if (entry == nullptr || entry->value() == nullptr) return;
      if (property->name() == OVProPertyOther && readable_ && !readable_(*entry)) return;
      rows.push_back({property, entry});
    };
    if (const auto several = ov::cast<OVMultipleValue>(value)) {
      for (const auto& entry : several) add(entry);
    } else {
      add(ov::cast<OVSingleValue>(value));
    }
  }
  return rows;
}

/// Rows that are the same stay; those between are compared one by one.
void OVPersonSheet::refresh() {
  std::vector<Row> current = currentRows();
  const auto isSame = [](const Row& a, const Row& b) { return a.isSame(b); };
  const auto [start, currentStart] =
      std::mismatch(rows_.begin(), rows_.end(), current.begin(), current.end(), isSame);
  const auto [end, currentEnd] =
      std::mismatch(rows_.rbegin(), std::make_reverse_iterator(start), current.rbegin(),
                    std::make_reverse_iterator(currentStart), isSame);
  const auto first = static_cast<int>(start - rows_.begin());
  const auto gone = static_cast<int>(end.base() - start);
  const auto come = static_cast<int>(currentEnd.base() - currentStart);
  if (gone > come) {
    beginRemoveRows({}, first + come, first + gone - 1);
    rows_.erase(rows_.begin() + first + come, rows_.begin() + first + gone);
    endRemoveRows();
  } else if (come > gone) {
    beginInsertRows({}, first + gone, first + come - 1);
    rows_.insert(rows_.begin() + first + gone, current.begin() + first + gone,
                 current.begin() + first + come);
    endInsertRows();
  }
  rows_ = std::move(current);
  if (!rows_.empty()) emit dataChanged(index(0), index(rowCount() - 1));
}

int OVPersonSheet::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

bool OVPersonSheet::isMain(const Row& row) const {
  const auto several = ov::cast<OVMultipleValue>(person_->valueByProperty(row.property));
  if (several == nullptr || several->mainValue() != row.entry) return false;
  const auto isBeside = [&](const Row& other) {
    return other.property == row.property && other.entry != row.entry;
  };
  return std::any_of(rows_.begin(), rows_.end(), isBeside);
}

QString OVPersonSheet::labelOf(const Row& row) const {
  if (row.property->name() == OVProPertyOther && readable_) {
    const auto other = readable_(*row.entry);
    return other ? qString(other->first) : QString();
  }
  if (const auto account = ov::cast<OVObjectInstantMessage>(row.entry->value())) {
    if (account->server() != nullptr) return qString(account->server()->displayName());
  }
  const auto label = row.entry->label();
  if (label == nullptr || label->displayName() == row.property->displayName()) return {};
  return qString(label->displayName().isNull() ? label->name() : label->displayName());
}

QString OVPersonSheet::textOf(const Row& row) const {
  if (row.property->name() == OVProPertyOther && readable_) {
    const auto other = readable_(*row.entry);
    return other ? qString(other->second) : QString();
  }
  if (row.property->name() == OVProPertyIsOrganization) return tr("Yes");
  return ov::qt::textOf(row.entry->value());
}

QVariant OVPersonSheet::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return textOf(row);
    case Qt::EditRole:
      return ov::qt::editedFormOf(row.entry->value());
    case Qt::AccessibleTextRole: {
      const QString label = labelOf(row);
      const QString property = qString(row.property->displayName());
      return label.isEmpty() ? tr("%1: %2").arg(property, textOf(row))
                             : tr("%1, %2: %3").arg(property, label, textOf(row));
    }
    case PropertyRole:
      return qString(row.property->displayName());
    case PropertyNameRole:
      return qString(row.property->name());
    case LabelRole:
      return labelOf(row);
    case TypeRole:
      return static_cast<int>(row.entry->type());
    case MainRole:
      return isMain(row);
    case SeveralRole:
      return row.property->valueType() == OVValueTypeMultiple;
    case URLRole:
      return ov::qt::urlOf(row.entry->value(), row.property->name());
    default:
      return {};
  }
}

QHash<int, QByteArray> OVPersonSheet::roleNames() const {
  auto names = QAbstractListModel::roleNames();
  names.insert({{PropertyRole, "property"},
                {PropertyNameRole, "propertyName"},
                {LabelRole, "label"},
                {TypeRole, "type"},
                {MainRole, "isMain"},
                {SeveralRole, "maySeveral"},
                {URLRole, "url"}});
  return names;
}

Qt::ItemFlags OVPersonSheet::flags(const QModelIndex& index) const {
  auto flags = QAbstractListModel::flags(index);
  if (!index.isValid()) return flags;
  if (canChange(rows_[static_cast<std::size_t>(index.row())])) flags |= Qt::ItemIsEditable;
  return flags | Qt::ItemNeverHasChildren;
}
