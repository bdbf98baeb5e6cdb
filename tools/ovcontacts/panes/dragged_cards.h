#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMimeData>

namespace ovcontacts {

/// Contacts that are dragged away: as vCards, and as a file of them for file managers, which is
/// written once somebody asks for it and goes with the program.
class DraggedCards final : public QMimeData {
  Q_OBJECT

 public:
  /// The file is called after `name`.
  DraggedCards(QByteArray cards, QString name) : cards_(std::move(cards)), name_(std::move(name)) {}

  [[nodiscard]] QStringList formats() const override;
  [[nodiscard]] bool hasFormat(const QString& format) const override;

 protected:
  [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override;

 private:
  [[nodiscard]] QString file() const;

  QByteArray cards_;
  QString name_;
  mutable QString path_;
};

}  // namespace ovcontacts
