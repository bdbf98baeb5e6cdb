#include "panes/groups_pane.h"

#include <OVAddressBookQt/qt_text.h>

#include "panes/group_delegate.h"

namespace ovcontacts {

GroupsPane::GroupsPane(QWidget* parent) : QTreeView(parent) {
  setObjectName(QStringLiteral("groups"));
  setAccessibleName(tr("Groups and tags"));
  setModel(&model_);
  setItemDelegate(new GroupDelegate(this));
  setHeaderHidden(true);
  setIndentation(16);
  setFrameShape(QFrame::NoFrame);
  setUniformRowHeights(true);
  setEditTriggers(EditKeyPressed | SelectedClicked);
  setDragDropMode(DropOnly);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
          &GroupsPane::selectionChosen);
  viewport()->setBackgroundRole(QPalette::Window);
  connect(&model_, &QAbstractItemModel::rowsInserted, this,
          [this](const QModelIndex& above) { expand(above); });
}

void GroupsPane::setBook(OVQtBook* book) {
  model_.setBook(book);
  expandAll();
  selectEverybody();
  if (book == nullptr) return;
  connect(book, &OVQtBook::groupsChanged, this, &GroupsPane::selectionChosen);
  connect(book, &OVQtBook::tagsChanged, this, &GroupsPane::selectionChosen);
}

OVRef<IOVGroup> GroupsPane::selectedGroup() const {
  return currentIndex().isValid() ? model_.groupAt(currentIndex()) : nullptr;
}

OVString GroupsPane::selectedTag() const {
  return currentIndex().isValid() ? model_.tagAt(currentIndex()) : OVString();
}

void GroupsPane::selectEverybody() { select(OVGroupsModel::Everybody, {}); }

void GroupsPane::select(OVGroupsModel::Kind kind, const QString& ID) {
  const QModelIndex found = model_.find(kind, ID);
  if (found.isValid()) setCurrentIndex(found);
}

void GroupsPane::editGroup(const OVRef<IOVGroup>& group) {
  if (group == nullptr) return;
  select(OVGroupsModel::Group, ov::qt::qString(group->ID()));
  edit(currentIndex());
}

void GroupsPane::endEditing() {
  if (state() == EditingState) setFocus();
}

}  // namespace ovcontacts
