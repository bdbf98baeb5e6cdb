#include "panes/row_frame.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace ovcontacts {

RowFrame::RowFrame(QPainter* painter, const QStyleOptionViewItem& option)
    : painter_(painter),
      option_(option),
      style_(*(option.widget == nullptr ? QApplication::style() : option.widget->style())) {
  style_.drawPrimitive(QStyle::PE_PanelItemViewItem, &option_, painter_, option_.widget);
}

QColor RowFrame::color(QPalette::ColorRole role) const {
  const auto group =
      option_.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
  const bool isSelected = option_.state.testFlag(QStyle::State_Selected);
  return option_.palette.color(group, isSelected ? QPalette::HighlightedText : role);
}

void RowFrame::drawFocus() const {
  if (!option_.state.testFlag(QStyle::State_HasFocus) ||
      !option_.state.testFlag(QStyle::State_KeyboardFocusChange)) {
    return;
  }
  QStyleOptionFocusRect focus;
  focus.QStyleOption::operator=(option_);
  style_.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter_, option_.widget);
}

}  // namespace ovcontacts
