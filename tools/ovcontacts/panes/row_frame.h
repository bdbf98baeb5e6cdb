#pragma once

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionViewItem>

namespace ovcontacts {

/// What rows of all lists look like around their content.
class RowFrame {
 public:
  /// Draws the background. Both must outlive the frame.
  RowFrame(QPainter* painter, const QStyleOptionViewItem& option);

  /// The colour in which something in the row is drawn: another one when it is selected.
  [[nodiscard]] QColor color(QPalette::ColorRole role) const;
  /// Marks the row when it has the focus by keys.
  void drawFocus() const;

 private:
  QPainter* painter_;
  const QStyleOptionViewItem& option_;
  const QStyle& style_;
};

}  // namespace ovcontacts
