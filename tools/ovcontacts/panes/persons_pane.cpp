// The list forgets its current row whenever the filter is reset. Who is looked at is kept apart
// from it and selected again, so that searching changes the sheet beside it only when it must.

#include "panes/persons_pane.h"

#include <QtCore/QMimeData>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

#include <memory>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "document.h"
#include "panes/dragged_cards.h"
#include "panes/person_delegate.h"

namespace ovcontacts {

QMimeData* DraggedPersons::mimeData(const QModelIndexList& indexes) const {
  OVQtBook::Persons persons;
  for (const QModelIndex& index : indexes) persons.push_back(personAt(index.row()));
  const QString name = indexes.size() == 1 ? indexes.front().data().toString() : QString();
  auto* const data = new DraggedCards(cardsOf(persons), name);  // the caller's
  const std::unique_ptr<QMimeData> rows(OVPersonsFilter::mimeData(indexes));
  data->setData(kMimeType, rows->data(kMimeType));
  return data;
}

PersonsPane::PersonsPane(QWidget* parent)
    : QWidget(parent),
      search_(new QLineEdit(this)),
      list_(new QListView(this)),
      count_(new QLabel(this)) {
  search_->setObjectName(QStringLiteral("search"));
  search_->setPlaceholderText(tr("Search"));
  search_->setAccessibleName(tr("Search contacts"));
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  list_->setObjectName(QStringLiteral("persons"));
  list_->setAccessibleName(tr("Contacts"));
  list_->setModel(&filter_);
  list_->setItemDelegate(new PersonDelegate(list_));
  list_->setUniformItemSizes(true);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setDragDropMode(QAbstractItemView::DragOnly);
  list_->setContextMenuPolicy(Qt::ActionsContextMenu);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  count_->setAlignment(Qt::AlignCenter);
  count_->setForegroundRole(QPalette::PlaceholderText);
  count_->setContentsMargins(0, 2, 0, 4);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  auto* const above = new QVBoxLayout;
  above->setContentsMargins(8, 8, 8, 8);
  above->addWidget(search_);
  layout->addLayout(above);
  layout->addWidget(list_);
  layout->addWidget(count_);
  connect(search_, &QLineEdit::textChanged, this,
          [this](const QString& text) { keepingCurrent([&] { filter_.setText(text); }); });
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
    if (isChanging_) return;
    looksAt_ = filter_.personAt(list_->currentIndex().row());
    emit currentPersonChanged();
  });
  for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
    connect(&filter_, change, this, &PersonsPane::showCount);
  }
  connect(&filter_, &QAbstractItemModel::modelAboutToBeReset, this, [this] { isChanging_ = true; });
  connect(&filter_, &QAbstractItemModel::modelReset, this, [this] {
    isChanging_ = false;
    select(looksAt_);
    showCount();
  });
}

template <class Change>
void PersonsPane::keepingCurrent(Change change) {
  const auto before = looksAt_;
  change();
  if (filter_.rowOf(before) < 0 && filter_.rowCount() > 0) select(filter_.personAt(0));
  if (looksAt_ != before) emit currentPersonChanged();
}

void PersonsPane::setBook(OVQtBook* book) {
  looksAt_ = nullptr;
  search_->clear();
  filter_.setEverybody();
  model_.setBook(book);
  select(filter_.personAt(0));
}

void PersonsPane::showGroup(const OVRef<IOVGroup>& group) {
  keepingCurrent([&] { filter_.setGroup(group); });
}

void PersonsPane::showTag(const OVString& tag) {
  const auto tags = model_.book() == nullptr ? nullptr : model_.book()->book()->tagManager();
  keepingCurrent(
      [&] { filter_.setPersons(tags == nullptr ? nullptr : tags->personIDsByTag(tag)); });
}

void PersonsPane::showEverybody() {
  keepingCurrent([&] { filter_.setEverybody(); });
}

OVRef<IOVPerson> PersonsPane::currentPerson() const {
  return filter_.personAt(list_->currentIndex().row());
}

OVQtBook::Persons PersonsPane::selectedPersons() const {
  OVQtBook::Persons persons;
  for (const QModelIndex& index : list_->selectionModel()->selectedRows()) {
    persons.push_back(filter_.personAt(index.row()));
  }
  return persons;
}

void PersonsPane::select(const OVRef<IOVPerson>& person) {
  const int row = filter_.rowOf(person);
  if (row < 0) {
    looksAt_ = nullptr;
    list_->selectionModel()->clear();
    emit currentPersonChanged();
    return;
  }
  const QModelIndex index = filter_.index(row, 0);
  list_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
  list_->scrollTo(index);
}

void PersonsPane::reveal(const OVRef<IOVPerson>& person) {
  if (filter_.rowOf(person) < 0) search_->clear();
  select(person);
}

void PersonsPane::focusSearch() {
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

void PersonsPane::showCount() { count_->setText(tr("%n contact(s)", nullptr, filter_.rowCount())); }

/// From the search to the persons by keys.
bool PersonsPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == search_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
      list_->setFocus(Qt::TabFocusReason);
      return true;
    }
    if (key == Qt::Key_Escape && !search_->text().isEmpty()) {
      search_->clear();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace ovcontacts
