#include "document.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <stdexcept>

#include <OVAddressBookQt/block_book.h>
#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookVCard/vcard_book.h>
#include <OVAddressBookVCard/vcard_export.h>

namespace ovcontacts {

namespace {

Format formatOf(const QString& path) {
  const QString suffix = QFileInfo(path).suffix().toLower();
  const bool isCards = suffix == QLatin1String("vcf") || suffix == QLatin1String("vcard");
  return isCards ? Format::Cards : Format::Block;
}

void addGroups(OVAddressBookGeneral& general, const OVList<IOVGroup>& groups) {
  const auto known = general.groupsDic();
  for (const auto& group : groups) {
    if (group == nullptr || known.find(group->ID()) != known.end()) continue;
    general.addGroup(group);
    addGroups(general, group->subGroups());
  }
}

/// The whole of any book as a general one.
OVRef<OVAddressBookGeneral> generalBookOf(const OVRef<OVAddressBook>& book) {
  if (const auto block = ov::cast<OVBlockBook>(book)) return block->generalBook();
  auto general = OVAddressBookGeneral::init();
  const auto persons = book->allPersons();
  for (const auto& person : persons) general->addPerson(person);
  addGroups(*general, book->rootGroups());
  return general;
}

OVRef<OVData> bytesOf(const OVRef<OVAddressBook>& book, Format format) {
  if (format == Format::Block) return generalBookOf(book)->saveToData();
  if (const auto cards = ov::cast<OVVCardBook>(book)) return cards->saveData();
  return ov::vcard::exportBook(generalBookOf(book));
}

}  // namespace

QByteArray cardsOf(const OVQtBook::Persons& persons) {
  const auto general = OVAddressBookGeneral::init();
  for (const auto& person : persons) general->addPerson(person);
  const auto data = ov::vcard::exportBook(general);
  return {data->text().data(), static_cast<qsizetype>(data->size())};
}

Document::Document(QObject* parent) : QObject(parent) {
  take(std::make_unique<OVQtBook>(OVBlockBook::init()));
}

void Document::take(std::unique_ptr<OVQtBook> book) {
  emit bookAboutToChange();
  book_ = std::move(book);
  connect(&book_->undoStack(), &QUndoStack::cleanChanged, this, &Document::titleChanged);
  emit bookChanged();
  emit titleChanged();
}

void Document::show(const OpenedBook& opened) {
  path_ = opened.path;
  format_ = opened.format;
  take(std::make_unique<OVQtBook>(opened.book));
}

QString Document::title() const {
  if (!path_.isEmpty()) return QFileInfo(path_).fileName();
  const QString name = ov::qt::qString(book_->book()->name());
  return name.isEmpty() ? tr("New Contacts") : name;
}

bool Document::isModified() const { return !book_->undoStack().isClean(); }

QString Document::write(const QString& path, Format format) {
  try {
    const auto error =
        ov::vcard::writeFile(QFile::encodeName(path).toStdString(), bytesOf(book_->book(), format));
    return error ? QString::fromStdString(error.message()) : QString();
  } catch (const std::exception& error) {
    return QString::fromUtf8(error.what());
  }
}

QString Document::save() {
  QString wrong;
  if (format_ == Format::Live) {
    book_->book()->save();
  } else {
    wrong = write(path_, format_);
  }
  if (wrong.isEmpty()) book_->undoStack().setClean();
  return wrong;
}

QString Document::saveAs(const QString& path) {
  const Format format = formatOf(path);
  QString wrong = write(path, format);
  if (!wrong.isEmpty()) return wrong;
  path_ = QFileInfo(path).absoluteFilePath();
  format_ = format;
  book_->undoStack().setClean();
  emit titleChanged();
  return {};
}

QString Document::exportTo(const QString& path) { return write(path, formatOf(path)); }

}  // namespace ovcontacts
