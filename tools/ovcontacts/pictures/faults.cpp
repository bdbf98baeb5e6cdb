#include "pictures/faults.h"

#include <QtCore/QSet>
#include <QtGui/QImage>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include "shown/cut_off.h"

namespace ovcontacts {

namespace {

QString fault(const QWidget& widget, const QString& what) {
  return QStringLiteral("%1 \"%2\": %3")
      .arg(QLatin1String(widget.metaObject()->className()), widget.objectName(), what);
}

void checkText(const QWidget& widget, const QString& text, int room, QStringList& faults) {
  const int needed = widget.fontMetrics().horizontalAdvance(text);
  if (needed > room) faults.append(fault(widget, QStringLiteral("cuts off \"%1\"").arg(text)));
}

void checkRows(const QAbstractItemView& view, QStringList& faults) {
  const auto* const delegate = dynamic_cast<const DrawsWholeTexts*>(view.itemDelegate());
  const QRect visible = view.viewport()->rect();
  for (QModelIndex index = view.indexAt(visible.topLeft() + QPoint(4, 4)); index.isValid();
       index = view.indexAt(view.visualRect(index).bottomLeft() + QPoint(4, 4))) {
    const QRect row = view.visualRect(index);
    if (!visible.contains(row)) return;  // the last one may go on below
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.widget = &view;
    option.font = view.font();
    option.rect = row;
    const bool isCut = delegate != nullptr ? delegate->isCutOff(option, index)
                                           : view.sizeHintForIndex(index).width() > row.width();
    if (isCut)
      faults.append(fault(view, QStringLiteral("cuts off a row: ") + index.data().toString()));
  }
}

}  // namespace

QStringList faultsOf(const QWidget& window) {
  QStringList faults;
  for (const QWidget* const widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->isWindow()) continue;
    const auto* const parent = widget->parentWidget();
    const bool isScrolled =
        qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()) != nullptr;
    constexpr int kHandle = 2;  // where a splitter is right to left
    const QRect room = parent->rect().adjusted(-kHandle, 0, kHandle, 0);
    if (!isScrolled && !room.contains(widget->geometry())) {
      faults.append(fault(*widget, QStringLiteral("is outside of what it is in")));
    }
    if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
      if (!label->wordWrap()) {
        checkText(*label, QString(label->text()).remove(QLatin1Char('&')), label->width(), faults);
      }
      if (label->wordWrap() && label->heightForWidth(label->width()) > label->height()) {
        faults.append(fault(*label, QStringLiteral("has too little room")));
      }
    } else if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
      checkText(*button, QString(button->text()).remove(QLatin1Char('&')), button->width(), faults);
    } else if (const auto* const line = qobject_cast<const QLineEdit*>(widget)) {
      checkText(*line, line->text().isEmpty() ? line->placeholderText() : line->text(),
                line->width() - 8, faults);
    } else if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget)) {
      checkRows(*view, faults);
    }
  }
  return faults;
}

QStringList faultsOf(const QImage& picture) {
  QSet<QRgb> colors;
  for (int y = 0; y < picture.height(); y += 2) {
    for (int x = 0; x < picture.width(); x += 2) colors.insert(picture.pixel(x, y));
  }
  constexpr int kFewest = 100;
  return colors.size() < kFewest ? QStringList{QStringLiteral("there is nothing on it")}
                                 : QStringList();
}

}  // namespace ovcontacts
