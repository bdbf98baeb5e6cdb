// Painting, and the check whether a text is cut off, take the places of picture and texts from one
// function, which also mirrors them for languages that are written from right to left.

#include "panes/person_delegate.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <algorithm>

#include <OVAddressBookQt/persons_model.h>

#include "panes/row_frame.h"
#include "shown/avatar.h"
#include "shown/isolated.h"

namespace ovcontacts {

namespace {

constexpr int kMargin = 8;

struct Places {
  QRect picture;
  QRect name;
  QRect below;
};

QFont smallFont(QFont font) {
  font.setPointSizeF(font.pointSizeF() * 0.88);
  return font;
}

/// The first of these that differs from the name.
QString belowName(const QModelIndex& index) {
  for (const int role : {int{OVPersonsModel::BelowRole}, int{OVPersonsModel::CompanyRole},
                         int{OVPersonsModel::MainEmailRole}, int{OVPersonsModel::MainPhoneRole}}) {
    QString text = index.data(role).toString();
    if (!text.isEmpty() && text != shownName(index)) return text;
  }
  return {};
}

Places placesIn(const QStyleOptionViewItem& option, bool hasBelow) {
  const QRect all = option.rect.adjusted(kMargin, 4, -kMargin, -4);
  const int side = all.height();
  const auto mirrored = [&](const QRect& place) {
    return QStyle::visualRect(option.direction, option.rect, place);
  };
  const QRect texts = all.adjusted(side + kMargin, 0, 0, 0);
  const int nameHeight = QFontMetrics(option.font).height();
  const int belowHeight = hasBelow ? QFontMetrics(smallFont(option.font)).height() : 0;
  const int top = texts.top() + (texts.height() - nameHeight - belowHeight) / 2;
  return {mirrored({all.left(), all.top(), side, side}),
          mirrored({texts.left(), top, texts.width(), nameHeight}),
          mirrored({texts.left(), top + nameHeight, texts.width(), belowHeight})};
}

}  // namespace

QString shownName(const QModelIndex& person) {
  const QString name = person.data().toString();
  return name.isEmpty() ? QCoreApplication::translate("Words", "(no name)") : name;
}

void PersonDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const RowFrame frame(painter, option);
  const QString below = belowName(index);
  const Places places = placesIn(option, !below.isEmpty());
  drawAvatar(*painter, places.picture, index.data(OVPersonsModel::ThumbnailRole).toByteArray(),
             index.data().toString());
  const auto drawLine = [&](const QRect& place, const QFont& font, const QString& text,
                            qreal strength) {
    QColor color = frame.color(QPalette::Text);
    color.setAlphaF(static_cast<float>(strength));
    painter->setFont(font);
    painter->setPen(color);
    painter->drawText(place,
                      static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft) |
                                       Qt::AlignAbsolute | Qt::AlignVCenter) |
                          Qt::TextSingleLine,
                      isolated(QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width())));
  };
  painter->save();
  drawLine(places.name, option.font, shownName(index), 1);
  if (!below.isEmpty()) drawLine(places.below, smallFont(option.font), below, 0.72);
  painter->restore();
  frame.drawFocus();
}

QSize PersonDelegate::sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& /*index*/) const {
  const int lines =
      QFontMetrics(option.font).height() + QFontMetrics(smallFont(option.font)).height();
  return {120, std::max(lines + 10, 44)};
}

bool PersonDelegate::isCutOff(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const Places places = placesIn(option, true);
  return QFontMetrics(option.font).horizontalAdvance(shownName(index)) > places.name.width() ||
         QFontMetrics(smallFont(option.font)).horizontalAdvance(belowName(index)) >
             places.below.width();
}

}  // namespace ovcontacts
