#include "loading/picture_file.h"

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtGui/QImage>
#include <QtGui/QImageReader>

#include <algorithm>

#include "loading/file_bytes.h"

namespace ovcontacts {

namespace {

constexpr int kMostSide = 1024;
constexpr qsizetype kLarge = 512 << 10;
constexpr std::uint64_t kMostBytes = std::uint64_t{64} << 20;

[[noreturn]] void refuse(const char* why) {
  throw OpeningError(QCoreApplication::translate("Opening", why));
}

QImage fitted(const QImage& picture) {
  if (std::max(picture.width(), picture.height()) <= kMostSide) return picture;
  return picture.scaled(kMostSide, kMostSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QByteArray encodedAs(const QImage& picture, const char* format) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  fitted(picture).save(&buffer, format);
  return buffer.data();
}

}  // namespace

QByteArray encoded(const QImage& picture) { return encodedAs(picture, "PNG"); }

QByteArray pictureInFile(const QString& path, const Cancellation& cancellation) {
  const auto limited = [](std::uint64_t done, std::uint64_t all) {
    if (std::max(done, all) > kMostBytes) {
      refuse(QT_TRANSLATE_NOOP("Opening", "The picture is larger than 64 MiB."));
    }
  };
  const FileBytes file = readFile(path, limited, cancellation);
  QByteArray bytes(reinterpret_cast<const char*>(file.bytes.data()),
                   static_cast<qsizetype>(file.bytes.size()));
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  const QImage picture = reader.read();
  if (picture.isNull())
    refuse(QT_TRANSLATE_NOOP("Opening", "It is not a picture that can be read."));
  const bool isSmall = fitted(picture).size() == picture.size() && bytes.size() <= kLarge;
  if (isSmall) return bytes;
  return encodedAs(picture, picture.hasAlphaChannel() ? "PNG" : "JPG");
}

bool isPictureName(const QString& path) {
  const QByteArray suffix = QFileInfo(path).suffix().toLower().toUtf8();
  return QImageReader::supportedImageFormats().contains(suffix);
}

}  // namespace ovcontacts
