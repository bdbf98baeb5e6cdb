// A book may be changed while it is being saved. Changes are counted, and the book counts as saved
// only when none has come since saving began.

#include "document.h"

#include <QtCore/QFileInfo>

#include <exception>
#include <utility>

#include <OVAddressBookQt/block_book.h>
#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookVCard/vcard_export.h>

#include "saving/book_bytes.h"

namespace ovcontacts {

QByteArray cardsOf(const OVQtBook::Persons& persons) {
  const auto general = OVAddressBookGeneral::init();
  for (const auto& person : persons) general->addPerson(person);
  const auto data = ov::vcard::exportBook(general);
  return {data->text().data(), static_cast<qsizetype>(data->size())};
}

Document::Document(QObject* parent) : QObject(parent) {
  connect(&writer_, &FileWriter::written, this, &Document::end);
  take(std::make_unique<OVQtBook>(OVBlockBook::init()), nullptr);
}

void Document::take(std::unique_ptr<OVQtBook> book, const std::shared_ptr<LiveBook>& live) {
  emit bookAboutToChange();
  keeper_.reset();
  book_ = std::move(book);
  connect(&book_->undoStack(), &QUndoStack::cleanChanged, this, &Document::titleChanged);
  connect(&book_->undoStack(), &QUndoStack::indexChanged, this, [this] { ++changes_; });
  if (live != nullptr) {
    keeper_ = std::make_unique<LiveKeeper>(live, book_.get());
    connect(keeper_.get(), &LiveKeeper::saved, this, &Document::end);
  }
  emit bookChanged();
  emit titleChanged();
}

void Document::show(const OpenedBook& opened) {
  path_ = opened.path;
  format_ = opened.format;
  take(std::make_unique<OVQtBook>(opened.book), opened.live);
}

QString Document::title() const {
  if (!path_.isEmpty()) return QFileInfo(path_).fileName();
  const QString name = ov::qt::qString(book_->book()->name());
  return name.isEmpty() ? tr("New Contacts") : name;
}

bool Document::isModified() const { return !book_->undoStack().isClean(); }

void Document::begin(Saving what) {
  saving_ = what;
  savedChanges_ = changes_;
  emit savingChanged();
}

/// Only what is made into bytes here and now is saved: the book may be changed while they are
/// written.
void Document::write(Saving what, const QString& path) {
  if (saving_ != Saving::Nothing) return;
  savedPath_ = QFileInfo(path).absoluteFilePath();
  begin(what);
  try {
    writer_.start(savedPath_,
                  bytesOf(book_->book(), what == Saving::Book ? format_ : formatOf(path)));
  } catch (const std::exception& error) {
    end(QString::fromUtf8(error.what()));
  }
}

void Document::save() {
  if (keeper() == nullptr) return write(Saving::Book, path_);
  if (saving_ != Saving::Nothing) return;
  begin(Saving::Book);
  keeper_->save();
}

void Document::saveAs(const QString& path) { write(Saving::AtPlace, path); }

void Document::exportTo(const QString& path) { write(Saving::Copy, path); }

void Document::stopSaving() {
  if (saving_ == Saving::Nothing) return;
  if (!writer_.isWriting()) return keeper_->stop();
  writer_.forget();
  saving_ = Saving::Nothing;
  emit savingChanged();
}

void Document::end(const QString& wrong) {
  const Saving what = std::exchange(saving_, Saving::Nothing);
  if (wrong.isEmpty() && what != Saving::Copy) {
    if (what == Saving::AtPlace) {
      path_ = savedPath_;
      format_ = formatOf(path_);
    }
    if (changes_ == savedChanges_) book_->undoStack().setClean();
    emit titleChanged();
  }
  emit savingChanged();
  emit saved(what, wrong);
}

}  // namespace ovcontacts
