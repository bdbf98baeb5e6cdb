#include "shown/avatar.h"

#include <QtCore/QBuffer>
#include <QtCore/QCache>
#include <QtCore/QTextBoundaryFinder>
#include <QtGui/QFontMetrics>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <cstdint>

namespace ovcontacts {

namespace {

constexpr int kMostPixels = 512;

QString firstLetter(const QString& word) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
  const auto end = finder.toNextBoundary();
  return word.left(end < 0 ? 0 : end).toUpper();
}

QColor colorFor(const QString& name) {
  std::uint32_t sum = 7;  // the same in every process, unlike Qt's hash
  for (const QChar letter : name) sum = sum * 31 + letter.unicode();
  constexpr std::uint32_t kMixing = 2654435769U;
  return QColor::fromHsl(static_cast<int>((sum * kMixing >> 16) % 360), 95, 115);
}

}  // namespace

QImage decoded(const QByteArray& picture) {
  if (picture.isEmpty()) return {};
  static QCache<QByteArray, QImage> cache(64);
  if (const QImage* const known = cache.object(picture)) return *known;
  QBuffer buffer;
  buffer.setData(picture);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (std::max(size.width(), size.height()) > kMostPixels) {
    reader.setScaledSize(size.scaled(kMostPixels, kMostPixels, Qt::KeepAspectRatio));
  }
  QImage image = reader.read();
  cache.insert(picture, new QImage(image));  // the cache's from now on
  return image;
}

QString initials(const QString& name) {
  const QStringList words = name.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  QStringList letters;
  for (const QString& word : words) {
    if (word.front().isLetter()) letters.append(firstLetter(word));
  }
  if (letters.isEmpty()) return {};
  return letters.size() == 1 ? letters.front() : letters.front() + letters.back();
}

void drawAvatar(QPainter& painter, const QRect& place, const QByteArray& picture,
                const QString& name) {
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  QPainterPath disc;
  disc.addEllipse(place);
  const QImage image = decoded(picture);
  if (!image.isNull()) {
    const int side = std::min(image.width(), image.height());
    const QRect middle((image.width() - side) / 2, (image.height() - side) / 2, side, side);
    painter.setClipPath(disc);
    painter.drawImage(place, image, middle);
  } else {
    painter.fillPath(disc, colorFor(name));
    QFont font = painter.font();
    font.setPixelSize(std::max(8, place.height() * 2 / 5));
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(Qt::white);
    const QString letters = initials(name);
    painter.drawText(place, Qt::AlignCenter, letters.isEmpty() ? QStringLiteral("?") : letters);
  }
  painter.restore();
}

}  // namespace ovcontacts
