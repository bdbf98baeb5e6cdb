#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

#include <OVAddressBookQt/qt_book.h>

#include "loading/book_source.h"

namespace ovcontacts {

/// The book that a window shows, and where it is kept.
class Document : public QObject {
  Q_OBJECT

 public:
  /// A new, empty book.
  explicit Document(QObject* parent = nullptr);

  /// Never null; another one after `show`.
  [[nodiscard]] OVQtBook* book() const { return book_.get(); }
  /// "" for a book that was not saved yet.
  [[nodiscard]] QString path() const { return path_; }
  [[nodiscard]] Format format() const { return format_; }
  /// What a window's title calls it.
  [[nodiscard]] QString title() const;
  [[nodiscard]] bool isModified() const;

  void show(const OpenedBook& opened);

  /// Saves where the book is kept. Gives what went wrong; "" when nothing did.
  [[nodiscard]] QString save();
  /// Saves under another name, and keeps the book there from now on: as vCards where the name ends
  /// so (".vcf", ".vcard"), else as a data block.
  [[nodiscard]] QString saveAs(const QString& path);
  /// Writes a copy, in the format that the name says.
  [[nodiscard]] QString exportTo(const QString& path);

 signals:
  /// Before the old book goes.
  void bookAboutToChange();
  void bookChanged();
  void titleChanged();

 private:
  void take(std::unique_ptr<OVQtBook> book);
  [[nodiscard]] QString write(const QString& path, Format format);

  std::unique_ptr<OVQtBook> book_;
  QString path_;
  Format format_ = Format::Block;
};

/// The persons of a book as vCards.
[[nodiscard]] QByteArray cardsOf(const OVQtBook::Persons& persons);

}  // namespace ovcontacts
