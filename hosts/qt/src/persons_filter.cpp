// A list of the model's row numbers, in the model's order. While everybody is shown there is no
// list: the rows are those of the model.

#include <OVAddressBookQt/persons_filter.h>

#include <QtCore/QMimeData>

#include <algorithm>

#include <OVAddressBookQt/qt_text.h>

#include "all_groups.h"

OVPersonsFilter::OVPersonsFilter(OVPersonsModel* persons, QObject* parent)
    : QAbstractProxyModel(parent), persons_(persons) {
  QAbstractProxyModel::setSourceModel(persons);
  follow();
  refill();
}

void OVPersonsFilter::setText(const QString& text) {
  OVPersonMatcher matcher(ov::qt::ovString(text));
  text_ = text;
  beginResetModel();
  const bool isNarrower = !isWhole() && matcher.isWithin(matcher_);
  matcher_ = std::move(matcher);
  if (isNarrower) {
    std::erase_if(rows_, [this](std::uint32_t row) {
      return !matcher_.matches(*persons_->personAt(static_cast<int>(row)));
    });
  } else {
    refill();
  }
  endResetModel();
}

void OVPersonsFilter::setPersons(const OVList<OVString>& IDs) {
  auto chosen = std::make_unique<Chosen>();
  if (const auto* const book = persons_->book()) {
    const auto persons = book->book()->personsForIDs(IDs);
    for (const auto& person : persons) chosen->push_back(person.get());
  }
  choose(std::move(chosen));
}

void OVPersonsFilter::setGroup(const OVRef<IOVGroup>& group) {
  auto chosen = std::make_unique<Chosen>();
  auto groups = OVList<IOVGroup>::list();
  if (group != nullptr) groups.push_back(group);
  for (const auto& each : ov::qt::withAllBelow(groups)) {
    const auto persons = each->persons();
    for (const auto& person : persons) chosen->push_back(person.get());
  }
  choose(std::move(chosen));
}

void OVPersonsFilter::setEverybody() { choose(nullptr); }

void OVPersonsFilter::choose(std::unique_ptr<Chosen> chosen) {
  if (chosen != nullptr) std::sort(chosen->begin(), chosen->end());
  beginResetModel();
  chosen_ = std::move(chosen);
  refill();
  endResetModel();
}

bool OVPersonsFilter::accepts(const OVRef<IOVPerson>& person) const {
  if (chosen_ != nullptr && !std::binary_search(chosen_->begin(), chosen_->end(), person.get())) {
    return false;
  }
  return matcher_.matchesAll() || matcher_.matches(*person);
}

void OVPersonsFilter::refill() {
  rows_.clear();
  if (isWhole()) return rows_.shrink_to_fit();
  const int count = persons_->rowCount();
  for (int row = 0; row < count; ++row) {
    if (accepts(persons_->personAt(row))) rows_.push_back(static_cast<std::uint32_t>(row));
  }
  if (rows_.capacity() > rows_.size() + rows_.size() / 4) rows_.shrink_to_fit();
}

OVRef<IOVPerson> OVPersonsFilter::personAt(int row) const {
  return row < 0 || row >= rowCount() ? nullptr : persons_->personAt(sourceRowOf(row));
}

int OVPersonsFilter::sourceRowOf(int row) const {
  return isWhole() ? row : static_cast<int>(rows_[static_cast<std::size_t>(row)]);
}

int OVPersonsFilter::rowOf(const OVRef<IOVPerson>& person) const {
  const int row = persons_->rowOf(person);
  return row < 0 ? -1 : mapFromSource(persons_->index(row)).row();
}

QModelIndex OVPersonsFilter::mapToSource(const QModelIndex& index) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  return persons_->index(sourceRowOf(index.row()));
}

QModelIndex OVPersonsFilter::mapFromSource(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  if (isWhole()) return createIndex(index.row(), 0);
  const int place = placeOf(index.row());
  const bool isShown = place < rowCount() && rows_[static_cast<std::size_t>(place)] ==
                                                 static_cast<std::uint32_t>(index.row());
  return isShown ? createIndex(place, 0) : QModelIndex();
}

int OVPersonsFilter::placeOf(int sourceRow) const {
  const auto at =
      std::lower_bound(rows_.begin(), rows_.end(), static_cast<std::uint32_t>(sourceRow));
  return static_cast<int>(at - rows_.begin());
}

QModelIndex OVPersonsFilter::index(int row, int column, const QModelIndex& parent) const {
  return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex OVPersonsFilter::parent(const QModelIndex& /*index*/) const { return {}; }

int OVPersonsFilter::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return isWhole() ? persons_->rowCount() : static_cast<int>(rows_.size());
}

int OVPersonsFilter::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 1;
}

bool OVPersonsFilter::hasChildren(const QModelIndex& parent) const { return rowCount(parent) != 0; }

QStringList OVPersonsFilter::mimeTypes() const { return {kMimeType}; }

QMimeData* OVPersonsFilter::mimeData(const QModelIndexList& indexes) const {
  QByteArray ids;
  for (const QModelIndex& each : indexes) {
    ids.append(each.data(OVPersonsModel::IDRole).toString().toUtf8()).append('\n');
  }
  auto* const data = new QMimeData;  // the caller's
  data->setData(kMimeType, ids);
  return data;
}
