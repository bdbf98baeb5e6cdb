#pragma once

#include <QtWidgets/QStyledItemDelegate>

#include "shown/cut_off.h"

namespace ovcontacts {

/// A person in a list: picture, name, and what tells apart who has the same name.
class PersonDelegate final : public QStyledItemDelegate, public DrawsWholeTexts {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
  [[nodiscard]] bool isCutOff(const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
};

/// What a list calls a person of whom nothing is known, too.
[[nodiscard]] QString shownName(const QModelIndex& person);

}  // namespace ovcontacts
