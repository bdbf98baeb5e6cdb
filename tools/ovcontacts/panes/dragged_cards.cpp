#include "panes/dragged_cards.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>

#include <memory>
#include <vector>

namespace ovcontacts {

namespace {

constexpr QLatin1String kCards("text/vcard");
constexpr QLatin1String kFiles("text/uri-list");

/// Whoever got the file may read it later: the folders go with the program.
QString newFolder() {
  static std::vector<std::unique_ptr<QTemporaryDir>> folders;
  folders.push_back(std::make_unique<QTemporaryDir>());
  return folders.back()->isValid() ? folders.back()->path() : QString();
}

QString fileName(QString name) {
  constexpr int kLongest = 60;
  name.remove(QLatin1Char('/')).remove(QChar::Null);
  while (name.startsWith(QLatin1Char('.'))) name.remove(0, 1);
  name.truncate(kLongest);
  return (name.isEmpty() ? QStringLiteral("contacts") : name) + QStringLiteral(".vcf");
}

}  // namespace

QStringList DraggedCards::formats() const { return QMimeData::formats() << kCards << kFiles; }

bool DraggedCards::hasFormat(const QString& format) const { return formats().contains(format); }

QString DraggedCards::file() const {
  if (!path_.isEmpty()) return path_;
  const QString folder = newFolder();
  if (folder.isEmpty()) return {};
  QFile file(folder + QLatin1Char('/') + fileName(name_));
  if (!file.open(QIODevice::WriteOnly) || file.write(cards_) != cards_.size()) return {};
  return path_ = file.fileName();
}

QVariant DraggedCards::retrieveData(const QString& format, QMetaType type) const {
  if (format == kCards) return cards_;
  if (format != kFiles) return QMimeData::retrieveData(format, type);
  const QString path = file();
  if (path.isEmpty()) return {};
  const QUrl url = QUrl::fromLocalFile(path);
  if (type.id() == QMetaType::QByteArray) return url.toEncoded() + "\r\n";
  return QVariantList{url};
}

}  // namespace ovcontacts
