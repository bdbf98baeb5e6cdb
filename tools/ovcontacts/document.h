#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <cstdint>
#include <memory>

#include <OVAddressBookQt/qt_book.h>

#include "live/live_keeper.h"
#include "loading/book_source.h"
#include "saving/file_writer.h"

namespace ovcontacts {

/// What is being saved.
enum class Saving : std::uint8_t {
  Nothing,
  Book,     ///< the book, where it is kept
  AtPlace,  ///< the book, at a new place
  Copy,     ///< a copy
};

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
  /// Null unless the book is kept as a live one.
  [[nodiscard]] LiveKeeper* keeper() const {
    return format_ == Format::Live ? keeper_.get() : nullptr;
  }
  /// What a window's title calls it.
  [[nodiscard]] QString title() const;
  [[nodiscard]] bool isModified() const;

  /// Not while something is being saved.
  void show(const OpenedBook& opened);

  /// Saves where the book is kept. This and the next two go on in the background: `saved` says how
  /// it went. They do nothing while something is being saved.
  void save();
  /// Saves under another name, and keeps the book there from now on: as vCards where the name ends
  /// so (".vcf", ".vcard"), else as a data block.
  void saveAs(const QString& path);
  /// Writes a copy, in the format that the name says.
  void exportTo(const QString& path);
  [[nodiscard]] Saving saving() const { return saving_; }
  /// What cannot be stopped is not waited for any more. The changes count as unsaved.
  void stopSaving();

 signals:
  /// Before the old book goes.
  void bookAboutToChange();
  void bookChanged();
  void titleChanged();
  /// What went wrong; "" when nothing did.
  void saved(ovcontacts::Saving what, const QString& wrong);
  /// Saving has begun or ended.
  void savingChanged();

 private:
  void take(std::unique_ptr<OVQtBook> book, const std::shared_ptr<LiveBook>& live);
  void write(Saving what, const QString& path);
  void begin(Saving what);
  void end(const QString& wrong);

  std::unique_ptr<OVQtBook> book_;
  std::unique_ptr<LiveKeeper> keeper_;
  FileWriter writer_;
  QString path_;
  Format format_ = Format::Block;
  /// Counts what was done, so that what comes while a file is written is seen to be unsaved.
  std::uint64_t changes_ = 0;
  Saving saving_ = Saving::Nothing;
  QString savedPath_;
  std::uint64_t savedChanges_ = 0;
};

/// The persons of a book as vCards.
[[nodiscard]] QByteArray cardsOf(const OVQtBook::Persons& persons);

}  // namespace ovcontacts
