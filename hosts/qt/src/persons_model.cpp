// Sorted by the library once; a person who is added or changed is placed by binary search.

#include <OVAddressBookQt/persons_model.h>

#include <algorithm>
#include <string>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/single_value.h>

using ov::qt::qString;

namespace {

QByteArray bytesOf(const OVRef<OVImage>& image) {
  const auto data = image == nullptr ? nullptr : image->data();
  if (data == nullptr) return {};
  return {data->text().data(), static_cast<qsizetype>(data->size())};
}

QString companyOf(const IOVPerson& person) {
  const auto value = ov::cast<OVSingleValue>(person.valueByPropertyName(OVProPertyCompany));
  return value == nullptr ? QString() : qString(ov::cast<OVString>(value->value()));
}

}  // namespace

OVPersonsModel::OVPersonsModel(OVQtBook* book, QObject* parent) : QAbstractListModel(parent) {
  setBook(book);
}

void OVPersonsModel::setBook(OVQtBook* book) {
  beginResetModel();
  if (book_ != nullptr) book_->disconnect(this);
  book_ = book;
  fill();
  endResetModel();
  if (book == nullptr) return;
  const auto reset = [this] {
    beginResetModel();
    fill();
    endResetModel();
  };
  connect(book, &OVQtBook::personsReset, this, reset);
  connect(book, &OVQtBook::nameOrderChanged, this, reset);
  connect(book, &QObject::destroyed, this, [this, reset] {
    book_.clear();
    reset();
  });
  connect(book, &OVQtBook::personAdded, this, &OVPersonsModel::add);
  connect(book, &OVQtBook::personRemoved, this, &OVPersonsModel::remove);
  connect(book, &OVQtBook::personChanged, this, &OVPersonsModel::change);
}

void OVPersonsModel::fill() {
  persons_.clear();
  if (book_ == nullptr) {
    persons_.shrink_to_fit();
    return;
  }
  const auto all = book_->book()->allPersons();
  persons_.reserve(all.size());
  for (const auto& person : all) {
    if (person != nullptr) persons_.push_back(person);
  }
  OVPersonSorter(order_).sort(persons_);
}

void OVPersonsModel::setOrder(OVPersonOrder order) {
  if (order == order_) return;
  beginResetModel();
  order_ = order;
  fill();
  endResetModel();
}

OVRef<IOVPerson> OVPersonsModel::personAt(int row) const {
  return row < 0 || row >= rowCount() ? nullptr : persons_[static_cast<std::size_t>(row)];
}

int OVPersonsModel::rowOf(const OVRef<IOVPerson>& person) const {
  const auto at = std::find(persons_.begin(), persons_.end(), person);
  return at == persons_.end() ? -1 : static_cast<int>(at - persons_.begin());
}

int OVPersonsModel::placeOf(const IOVPerson& person, int without) const {
  const int count = rowCount() - (without < 0 ? 0 : 1);
  if (order_ == OVPersonOrder::None) return without < 0 ? count : without;
  const OVPersonSorter sorter(order_);
  const std::string key = sorter.keyOf(person);
  int low = 0;
  for (int high = count; low < high;) {
    const int middle = low + (high - low) / 2;
    const int row = without >= 0 && middle >= without ? middle + 1 : middle;
    if (key < sorter.keyOf(*personAt(row))) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return low;
}

void OVPersonsModel::add(const OVRef<IOVPerson>& person) {
  if (person == nullptr || rowOf(person) >= 0) return;
  const int row = placeOf(*person, -1);
  beginInsertRows({}, row, row);
  persons_.insert(persons_.begin() + row, person);
  endInsertRows();
}

void OVPersonsModel::remove(const OVRef<IOVPerson>& person) {
  const int row = rowOf(person);
  if (row < 0) return;
  beginRemoveRows({}, row, row);
  persons_.erase(persons_.begin() + row);
  endRemoveRows();
}

void OVPersonsModel::change(const OVRef<IOVPerson>& person) {
  const int row = rowOf(person);
  if (row < 0) return;
  const int place = placeOf(*person, row);
  if (place != row) {
    beginMoveRows({}, row, row, {}, place > row ? place + 1 : place);
    const auto from = persons_.begin() + row;
    const auto to = persons_.begin() + place;
    from < to ? std::rotate(from, from + 1, to + 1) : std::rotate(to, from, from + 1);
    endMoveRows();
  }
  emit dataChanged(index(place), index(place));
}

int OVPersonsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(persons_.size());
}

QVariant OVPersonsModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const IOVPerson& person = *persons_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
      return qString(ov::headingOf(person).main);
    case IDRole:
      return qString(person.ID());
    case BelowRole:
      return qString(ov::headingOf(person).below);
    case SortKeyRole:
      return QByteArray::fromStdString(OVPersonSorter(OVPersonOrder::Name).keyOf(person));
    case ThumbnailRole:
      return bytesOf(person.thumbnail());
    case MainPhoneRole:
      return person.mainPhone() == nullptr ? QString() : qString(person.mainPhone()->phoneNumber());
    case MainEmailRole:
      return person.mainEmail() == nullptr ? QString() : qString(person.mainEmail()->email());
    case CompanyRole:
      return companyOf(person);
    default:
      return {};
  }
}

QHash<int, QByteArray> OVPersonsModel::roleNames() const {
  auto names = QAbstractListModel::roleNames();
  names.insert({{IDRole, "personID"},
                {BelowRole, "below"},
                {SortKeyRole, "sortKey"},
                {ThumbnailRole, "thumbnail"},
                {MainPhoneRole, "mainPhone"},
                {MainEmailRole, "mainEmail"},
                {CompanyRole, "company"}});
  return names;
}

Qt::ItemFlags OVPersonsModel::flags(const QModelIndex& index) const {
  const auto usual = QAbstractListModel::flags(index);
  return index.isValid() ? usual | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren : usual;
}
