// How the rows of a filter follow those of its model. Its list holds row numbers of the model, so
// it is renumbered even by changes of persons who are not shown.

#include <OVAddressBookQt/persons_filter.h>

#include <algorithm>
#include <utility>

void OVPersonsFilter::follow() {
  connect(persons_, &QAbstractItemModel::modelAboutToBeReset, this, [this] { beginResetModel(); });
  connect(persons_, &QAbstractItemModel::modelReset, this, [this] {
    refill();
    endResetModel();
  });
  connect(persons_, &QAbstractItemModel::rowsAboutToBeInserted, this,
          [this](const QModelIndex&, int first, int last) {
            if (isWhole()) beginInsertRows({}, first, last);
          });
  connect(persons_, &QAbstractItemModel::rowsInserted, this,
          [this](const QModelIndex&, int first, int last) {
            isWhole() ? endInsertRows() : sourceInserted(first, last);
          });
  connect(persons_, &QAbstractItemModel::rowsAboutToBeRemoved, this,
          [this](const QModelIndex&, int first, int last) {
            isWhole() ? beginRemoveRows({}, first, last) : sourceRemoved(first, last);
          });
  connect(persons_, &QAbstractItemModel::rowsRemoved, this,
          [this](const QModelIndex&, int first, int last) {
            if (isWhole()) return endRemoveRows();
            for (auto at = firstAtOrAfter(first); at != rows_.end(); ++at) {
              *at -= static_cast<std::uint32_t>(last - first + 1);
            }
          });
  connect(persons_, &QAbstractItemModel::rowsAboutToBeMoved, this,
          [this](const QModelIndex&, int from, int, const QModelIndex&, int to) {
            sourceAboutToMove(from, to);
          });
  connect(persons_, &QAbstractItemModel::rowsMoved, this,
          [this](const QModelIndex&, int from, int, const QModelIndex&, int to) {
            sourceMoved(from, to);
          });
  connect(persons_, &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex& first, const QModelIndex& last) {
            sourceChanged(first.row(), last.row());
          });
}

std::vector<std::uint32_t>::iterator OVPersonsFilter::firstAtOrAfter(int sourceRow) {
  return rows_.begin() + placeOf(sourceRow);
}

void OVPersonsFilter::sourceInserted(int first, int last) {
  const auto count = static_cast<std::uint32_t>(last - first + 1);
  for (auto at = firstAtOrAfter(first); at != rows_.end(); ++at) *at += count;
  std::vector<std::uint32_t> shown;
  for (int row = first; row <= last; ++row) {
    if (accepts(persons_->personAt(row))) shown.push_back(static_cast<std::uint32_t>(row));
  }
  if (shown.empty()) return;
  const int place = placeOf(first);
  beginInsertRows({}, place, place + static_cast<int>(shown.size()) - 1);
  rows_.insert(rows_.begin() + place, shown.begin(), shown.end());
  endInsertRows();
}

/// Before the model's own rows go, so that observers can still ask for them.
void OVPersonsFilter::sourceRemoved(int first, int last) {
  const int place = placeOf(first);
  const int end = placeOf(last + 1);
  if (place == end) return;
  beginRemoveRows({}, place, end - 1);
  rows_.erase(rows_.begin() + place, rows_.begin() + end);
  endRemoveRows();
}

void OVPersonsFilter::sourceAboutToMove(int from, int to) {
  if (isWhole()) {
    isMoving_ = beginMoveRows({}, from, from, {}, to);
    return;
  }
  const int place = placeOf(from);
  const bool isShown = place < rowCount() &&
                       rows_[static_cast<std::size_t>(place)] == static_cast<std::uint32_t>(from);
  isMoving_ = isShown && beginMoveRows({}, place, place, {}, placeOf(to));
}

/// `to` is a row before the move.
void OVPersonsFilter::sourceMoved(int from, int to) {
  const auto target = static_cast<std::uint32_t>(to > from ? to - 1 : to);
  for (std::uint32_t& row : rows_) {
    if (row == static_cast<std::uint32_t>(from)) {
      row = target;
    } else if (row > static_cast<std::uint32_t>(from) && row <= target) {
      --row;
    } else if (row < static_cast<std::uint32_t>(from) && row >= target) {
      ++row;
    }
  }
  std::sort(rows_.begin(), rows_.end());
  if (std::exchange(isMoving_, false)) endMoveRows();
}

void OVPersonsFilter::sourceChanged(int first, int last) {
  if (isWhole()) {
    emit dataChanged(createIndex(first, 0), createIndex(last, 0));
    return;
  }
  for (int row = first; row <= last; ++row) {
    const bool isWanted = accepts(persons_->personAt(row));
    const QModelIndex shown = mapFromSource(persons_->index(row));
    if (shown.isValid() && isWanted) {
      emit dataChanged(shown, shown);
    } else if (shown.isValid()) {
      sourceRemoved(row, row);
    } else if (isWanted) {
      const int place = placeOf(row);
      beginInsertRows({}, place, place);
      rows_.insert(rows_.begin() + place, static_cast<std::uint32_t>(row));
      endInsertRows();
    }
  }
}
