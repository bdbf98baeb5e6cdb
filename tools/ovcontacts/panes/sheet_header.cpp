// The header paints the picture itself: it takes clicks on it, and drops of a new one anywhere.

#include <QtCore/QEvent>
#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/single_value.h>

#include "loading/picture_file.h"
#include "panes/sheet_pane.h"
#include "shown/avatar.h"

namespace ovcontacts {

namespace {

constexpr int kSide = 76;

QString textUnder(const IOVPerson& person, const OVString& property) {
  const auto value = ov::cast<OVSingleValue>(person.valueByPropertyName(property));
  return value == nullptr ? QString() : ov::qt::qString(ov::cast<OVString>(value->value()));
}

QByteArray pictureOf(const IOVPerson& person) {
  const auto image = person.thumbnail();
  const auto data = image == nullptr ? nullptr : image->data();
  if (data == nullptr) return {};
  return {data->text().data(), static_cast<qsizetype>(data->size())};
}

/// The file of a picture that is dragged; "" for anything else.
QString pictureFileIn(const QMimeData& data) {
  const auto urls = data.urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
  const QString path = urls.front().toLocalFile();
  return isPictureName(path) ? path : QString();
}

}  // namespace

SheetHeader::SheetHeader(QWidget* parent)
    : QWidget(parent), name_(new QLabel(this)), below_(new QLabel(this)) {
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setWeight(QFont::DemiBold);
  name_->setFont(large);
  name_->setObjectName(QStringLiteral("name"));
  below_->setForegroundRole(QPalette::PlaceholderText);
  for (QLabel* const label : {name_, below_}) {
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(2);
  texts->addStretch();
  texts->addWidget(name_);
  texts->addWidget(below_);
  texts->addStretch();
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(20, 16, 20, 12);
  layout->addSpacing(kSide + 16);
  layout->addLayout(texts, 1);
  setAcceptDrops(true);
  setMinimumHeight(kSide + 28);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

void SheetHeader::show(const OVRef<IOVPerson>& person) {
  if (person == nullptr) {
    name_->clear();
    below_->clear();
    picture_.clear();
  } else {
    const auto heading = ov::headingOf(*person);
    const QString name = ov::qt::qString(heading.main);
    name_->setText(name.isEmpty() ? tr("(no name)") : name);
    QStringList below{ov::qt::qString(heading.below), textUnder(*person, OVProPertyJobTitle),
                      textUnder(*person, OVProPertyCompany)};
    below.removeAll(QString());
    below.removeAll(name);
    below_->setText(below.join(QStringLiteral(" \u00b7 ")));
    picture_ = pictureOf(*person);
  }
  below_->setVisible(!below_->text().isEmpty());
  update();
}

QRect SheetHeader::picturePlace() const {
  return QStyle::visualRect(layoutDirection(), rect(), {20, (height() - kSide) / 2, kSide, kSide});
}

void SheetHeader::paintEvent(QPaintEvent* /*event*/) {
  if (name_->text().isEmpty()) return;
  QPainter painter(this);
  drawAvatar(painter, picturePlace(), picture_, name_->text());
}

void SheetHeader::dragEnterEvent(QDragEnterEvent* event) {
  if (name_->text().isEmpty()) return;
  const QMimeData& data = *event->mimeData();
  if (data.hasImage() || !pictureFileIn(data).isEmpty()) event->acceptProposedAction();
}

void SheetHeader::dropEvent(QDropEvent* event) {
  const QMimeData& data = *event->mimeData();
  const QString path = pictureFileIn(data);
  if (!path.isEmpty()) {
    emit pictureFileDropped(path);
  } else if (const auto image = qvariant_cast<QImage>(data.imageData()); !image.isNull()) {
    emit pictureDropped(encoded(image));
  }
  event->acceptProposedAction();
}

void SheetHeader::mouseReleaseEvent(QMouseEvent* event) {
  if (picturePlace().contains(event->pos())) emit pictureClicked();
}

void SheetHeader::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) update();
  QWidget::changeEvent(event);
}

}  // namespace ovcontacts
