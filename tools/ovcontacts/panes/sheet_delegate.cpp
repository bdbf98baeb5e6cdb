// Texts wrap, so the height of a row follows from the width of the view. Painting, sizes and clicks
// on links take the places of label and text from one function.

#include "panes/sheet_delegate.h"

#include <QtCore/QUrl>
#include <QtGui/QPainter>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyle>

#include <algorithm>

#include <OVAddressBookQt/person_sheet.h>

#include "panes/row_frame.h"
#include "shown/isolated.h"
#include "shown/words.h"

namespace ovcontacts {

namespace {

constexpr int kSheetMargin = 10;
constexpr int kGap = 14;
constexpr int kWrapped = Qt::TextWordWrap | Qt::TextWrapAnywhere;

/// "Phone Work", with a wider blank between the two.
QString labelText(const QModelIndex& index) {
  const QString property = translated(index.data(OVPersonSheet::PropertyRole).toString());
  const QString label = translated(index.data(OVPersonSheet::LabelRole).toString());
  return label.isEmpty() || label == property ? property
                                              : property + QStringLiteral("\u2002") + label;
}

QString valueText(const QModelIndex& index) {
  QStringList lines = index.data().toString().split(QLatin1Char('\n'));
  for (QString& line : lines) line = isolated(line);
  const QString text = lines.join(QLatin1Char('\n'));
  return index.data(OVPersonSheet::MainRole).toBool() ? text + QStringLiteral("\u2002\u2605")
                                                      : text;
}

struct SheetPlaces {
  QRect label;
  QRect text;
};

SheetPlaces sheetPlacesIn(const QStyleOptionViewItem& option, const QRect& row) {
  const QRect all = row.adjusted(kSheetMargin, 5, -kSheetMargin, -5);
  const int labelWidth = std::clamp(all.width() * 3 / 10, 90, 210);
  const QRect label(all.left(), all.top(), labelWidth, all.height());
  const QRect text = all.adjusted(labelWidth + kGap, 0, 0, 0);
  return {QStyle::visualRect(option.direction, row, label),
          QStyle::visualRect(option.direction, row, text)};
}

int alignment(const QStyleOptionViewItem& option, Qt::Alignment side) {
  return static_cast<int>(QStyle::visualAlignment(option.direction, side) | Qt::AlignAbsolute |
                          Qt::AlignTop);
}

}  // namespace

void SheetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const RowFrame frame(painter, option);
  const SheetPlaces places = sheetPlacesIn(option, option.rect);
  const bool isLink = index.data(OVPersonSheet::URLRole).toUrl().isValid();
  painter->save();
  painter->setFont(option.font);
  QColor dim = frame.color(QPalette::Text);
  dim.setAlphaF(0.65F);
  painter->setPen(dim);
  painter->drawText(places.label, alignment(option, Qt::AlignRight) | kWrapped, labelText(index));
  painter->setPen(frame.color(isLink ? QPalette::Link : QPalette::Text));
  painter->drawText(places.text, alignment(option, Qt::AlignLeft) | kWrapped, valueText(index));
  painter->restore();
  frame.drawFocus();
}

QSize SheetDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
  const int width = view == nullptr ? 400 : view->viewport()->width();
  const SheetPlaces places = sheetPlacesIn(option, {0, 0, width, 10000});
  const QFontMetrics metrics(option.font);
  const int label = metrics.boundingRect(places.label, kWrapped, labelText(index)).height();
  const int text = metrics.boundingRect(places.text, kWrapped, valueText(index)).height();
  return {120, std::max({label, text, metrics.height()}) + 10};
}

bool SheetDelegate::isCutOff(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return option.rect.height() < sizeHint(option, index).height();
}

bool SheetDelegate::isLinkAt(const QPoint& point, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  if (!index.data(OVPersonSheet::URLRole).toUrl().isValid()) return false;
  const SheetPlaces places = sheetPlacesIn(option, option.rect);
  const QFontMetrics metrics(option.font);
  return metrics
      .boundingRect(places.text, alignment(option, Qt::AlignLeft) | kWrapped, valueText(index))
      .contains(point);
}

}  // namespace ovcontacts
