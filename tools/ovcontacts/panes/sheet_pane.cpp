// What comes out of a dialog is set step by step: the value, its label, whether it is the main one.
// A row goes when its value is emptied, so the later steps look whether it is still there.

#include "panes/sheet_pane.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QMenu>
#include <QtWidgets/QVBoxLayout>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookVCard/vcard_readable.h>

#include "dialogs/value_dialog.h"
#include "panes/sheet_delegate.h"
#include "shown/words.h"

namespace ovcontacts {

using ov::qt::ovString;
using ov::qt::qString;

SheetPane::SheetPane(QWidget* parent)
    : QWidget(parent), header_(new SheetHeader(this)), list_(new QListView(this)) {
  list_->setObjectName(QStringLiteral("sheet"));
  list_->setAccessibleName(tr("Details of the contact"));
  list_->setModel(&sheet_);
  list_->setItemDelegate(new SheetDelegate(list_));
  list_->setFrameShape(QFrame::NoFrame);
  list_->setResizeMode(QListView::Adjust);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setContextMenuPolicy(Qt::ActionsContextMenu);
  list_->setMouseTracking(true);
  list_->installEventFilter(this);
  list_->viewport()->installEventFilter(this);
  sheet_.setReadable([](const OVSingleValue& entry) {
    const auto other = ov::vcard::readableOther(entry);
    return other ? std::optional(std::pair(other->label, other->text)) : std::nullopt;
  });
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(header_);
  layout->addWidget(list_, 1);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  connect(list_, &QListView::doubleClicked, this, &SheetPane::editCurrent);
  connect(&sheet_, &QAbstractItemModel::modelReset, this, &SheetPane::refreshHeader);
  connect(&sheet_, &QAbstractItemModel::dataChanged, this, &SheetPane::refreshHeader);
  connect(&sheet_, &QAbstractItemModel::rowsRemoved, this, &SheetPane::refreshHeader);
}

void SheetPane::setBook(OVQtBook* book) {
  book_ = book;
  sheet_.setBook(book);
  if (book == nullptr) return;
  connect(book, &OVQtBook::personChanged, this, [this](const OVRef<IOVPerson>& person) {
    if (person == sheet_.person()) refreshHeader();
  });
}

void SheetPane::setPerson(const OVRef<IOVPerson>& person) { sheet_.setPerson(person); }

void SheetPane::refreshHeader() { header_->show(sheet_.person()); }

void SheetPane::addValue(const QString& property) {
  const auto known = OVProperty::propertyWithName(ovString(property));
  if (known == nullptr || sheet_.person() == nullptr) return;
  const bool maySeveral = known->valueType() == OVValueTypeMultiple;
  ValueDialog dialog(property, maySeveral ? known->subValueType() : known->valueType(), maySeveral,
                     this);
  const auto now = sheet_.person()->valueByProperty(known);
  if (!maySeveral) {
    for (int row = 0; row < sheet_.rowCount(); ++row) {
      const QModelIndex index = sheet_.index(row);
      if (index.data(OVPersonSheet::PropertyNameRole) == property) {
        dialog.setValue(index.data(Qt::EditRole));
      }
    }
  } else {
    dialog.setMain(now == nullptr);
  }
  if (dialog.exec() != QDialog::Accepted) return;
  const int row = sheet_.addValue(property, dialog.label(), dialog.value());
  if (row < 0) return;
  if (maySeveral && dialog.isMain())
    sheet_.setData(sheet_.index(row), true, OVPersonSheet::MainRole);
  list_->setCurrentIndex(sheet_.index(row));
}

void SheetPane::editCurrent() {
  const QPersistentModelIndex index = list_->currentIndex();
  if (!index.isValid() || !index.flags().testFlag(Qt::ItemIsEditable)) return;
  const bool maySeveral = index.data(OVPersonSheet::SeveralRole).toBool();
  const auto known = OVProperty::propertyWithName(
      ovString(index.data(OVPersonSheet::PropertyNameRole).toString()));
  ValueDialog dialog(qString(known->name()),
                     maySeveral ? known->subValueType() : known->valueType(), maySeveral, this);
  dialog.setValue(index.data(Qt::EditRole));
  dialog.setLabel(index.data(OVPersonSheet::LabelRole).toString());
  dialog.setMain(index.data(OVPersonSheet::MainRole).toBool());
  if (dialog.exec() != QDialog::Accepted || !index.isValid()) return;
  const bool isOtherValue = dialog.value() != index.data(Qt::EditRole);
  const bool isOtherLabel = maySeveral && !dialog.label().isEmpty() &&
                            dialog.label() != index.data(OVPersonSheet::LabelRole).toString();
  const bool becomesMain =
      maySeveral && dialog.isMain() && !index.data(OVPersonSheet::MainRole).toBool();
  if (!isOtherValue && !isOtherLabel && !becomesMain) return;
  const int row = index.row();
  const int rows = sheet_.rowCount();
  auto& stack = book_->undoStack();
  stack.beginMacro(tr("Edit"));
  if (isOtherValue) sheet_.setData(sheet_.index(row), dialog.value());
  if (sheet_.rowCount() == rows) {
    if (isOtherLabel) {
      sheet_.setData(sheet_.index(row), dialog.label(), OVPersonSheet::LabelRole);
    }
    if (becomesMain) sheet_.setData(sheet_.index(row), true, OVPersonSheet::MainRole);
  }
  stack.endMacro();
}

void SheetPane::removeCurrent() {
  const QModelIndex index = list_->currentIndex();
  if (index.isValid()) sheet_.removeRow(index.row());
}

void SheetPane::makeCurrentMain() {
  sheet_.setData(list_->currentIndex(), true, OVPersonSheet::MainRole);
}

void SheetPane::openCurrent() {
  const QUrl url = list_->currentIndex().data(OVPersonSheet::URLRole).toUrl();
  if (url.isValid()) emit urlOpened(url);
}

void SheetPane::fill(QMenu& menu) {
  for (const auto& property : OVProperty::StandardPropertyArray()) {
    const QString name = qString(property->name());
    static const QStringList kElsewhere{QStringLiteral("Thumbnail"), QStringLiteral("Tags"),
                                        QStringLiteral("Other"), qString(OVProPertyIsOrganization)};
    if (kElsewhere.contains(name)) continue;
    menu.addAction(translated(qString(property->displayName())), this,
                   [this, name] { addValue(name); });
  }
}

bool SheetPane::isOnLink(const QPoint& point) const {
  const QModelIndex index = list_->indexAt(point);
  const auto* const delegate = qobject_cast<const SheetDelegate*>(list_->itemDelegate());
  if (!index.isValid() || delegate == nullptr) return false;
  QStyleOptionViewItem option;
  option.initFrom(list_);
  option.widget = list_;
  option.font = list_->font();
  option.rect = list_->visualRect(index);
  return delegate->isLinkAt(point, option, index);
}

bool SheetPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list_->viewport()) {
    if (event->type() == QEvent::MouseMove) {
      const bool isLink = isOnLink(static_cast<QMouseEvent*>(event)->pos());
      list_->viewport()->setCursor(isLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
    } else if (event->type() == QEvent::MouseButtonRelease) {
      const auto* const mouse = static_cast<QMouseEvent*>(event);
      if (mouse->button() == Qt::LeftButton && isOnLink(mouse->pos())) openCurrent();
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace ovcontacts
