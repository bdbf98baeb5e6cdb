#include "panes/group_delegate.h"

#include <OVAddressBookQt/groups_model.h>

namespace ovcontacts {

QSize GroupDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QSize usual = QStyledItemDelegate::sizeHint(option, index);
  return {usual.width(), QFontMetrics(option.font).height() + 10};
}

void GroupDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const int kind = index.data(OVGroupsModel::KindRole).toInt();
  if (kind != OVGroupsModel::Groups && kind != OVGroupsModel::Tags) return;
  option->font.setPointSizeF(option->font.pointSizeF() * 0.88);
  option->font.setWeight(QFont::DemiBold);
  option->palette.setBrush(QPalette::Text, option->palette.placeholderText());
}

}  // namespace ovcontacts
