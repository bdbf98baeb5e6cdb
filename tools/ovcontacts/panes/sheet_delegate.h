#pragma once

#include <QtWidgets/QStyledItemDelegate>

#include "shown/cut_off.h"

namespace ovcontacts {

/// A value of a sheet: what it is on one side, the text on the other. Texts have as many lines as
/// they need; what a click opens looks like a link.
class SheetDelegate final : public QStyledItemDelegate, public DrawsWholeTexts {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
  [[nodiscard]] bool isCutOff(const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
  /// Whether the link of the row is at the point.
  [[nodiscard]] bool isLinkAt(const QPoint& point, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const;
};

}  // namespace ovcontacts
