#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace ovcontacts {

/// A group or a tag in the tree; what is above them is small and dim.
class GroupDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace ovcontacts
