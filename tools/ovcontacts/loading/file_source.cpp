#include "loading/file_source.h"

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

#include <string_view>

#include <OVAddressBookQt/block_book.h>
#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookVCard/vcard_book.h>
#include <OVAddressBookVCard/vcard_export.h>

#include "loading/file_bytes.h"

namespace ovcontacts {

namespace {

QString words(const char* text) { return QCoreApplication::translate("Opening", text); }

bool isBlock(std::string_view bytes) { return bytes.starts_with("bplist"); }

bool hasCards(std::string_view bytes) {
  constexpr std::string_view kBegin = "BEGIN:VCARD";
  // UTF-16 has a NUL beside each letter.
  std::string letters(bytes.substr(0, 4096));
  std::erase(letters, '\0');
  const QByteArray upper = QByteArray::fromStdString(letters).toUpper();
  return upper.contains(QByteArray(kBegin.data(), kBegin.size())) ||
         QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()))
             .contains(QByteArray(kBegin.data(), kBegin.size()));
}

OVRef<OVAddressBook> bookOfBlock(const OVRef<OVData>& data) {
  ov::vcard::registerClasses();
  OVRef<OVObject> root;
  try {
    root = OVAddressBookGeneral::addressBookWithData(data);
  } catch (const OVInvalidArchive& damage) {
    throw OpeningError(words(QT_TRANSLATE_NOOP("Opening", "The data block is damaged: %1"))
                           .arg(QString::fromUtf8(damage.what())));
  }
  const auto general = ov::cast<OVAddressBookGeneral>(root);
  if (general == nullptr) {
    throw OpeningError(
        words(QT_TRANSLATE_NOOP("Opening", "The data block holds something other than contacts.")));
  }
  return OVBlockBook::initWithBook(general);
}

QString remarksOf(const OVVCardBook& book) {
  constexpr std::size_t kMaxLines = 100;
  const auto problems = book.problems();
  QStringList lines;
  for (std::size_t i = 0; i < problems.size() && i < kMaxLines; ++i) {
    lines.append(words(QT_TRANSLATE_NOOP("Opening", "Line %1: %2"))
                     .arg(problems[i].line)
                     .arg(ov::qt::qString(problems[i].reason)));
  }
  if (problems.size() > kMaxLines) lines.append(QStringLiteral("\u2026"));
  return lines.join(QLatin1Char('\n'));
}

}  // namespace

QString FileSource::name() const { return QFileInfo(path_).fileName(); }

OpenedBook FileSource::open(const Progress& progress, const Cancellation& cancellation) {
  FileBytes file = readFile(path_, progress, cancellation);
  const QString path = file.isOrdinary ? QFileInfo(path_).absoluteFilePath() : QString();
  const auto data = OVData::dataWithVector(std::move(file.bytes));
  progress(0, 0);
  if (isBlock(data->text())) return {bookOfBlock(data), Format::Block, path, {}};
  if (data->size() != 0 && !hasCards(data->text())) {
    throw OpeningError(
        words(QT_TRANSLATE_NOOP("Opening", "The file holds neither a data block nor vCards.")));
  }
  const auto book = OVVCardBook::init();
  book->loadWithDataProgressBlock(data, [&] { cancellation.check(); });
  return {book, Format::Cards, path, remarksOf(*book)};
}

OVRef<OVAddressBook> bookOfCards(const QByteArray& bytes) {
  const auto book = OVVCardBook::init();
  book->loadWithData(OVData::dataWithText({bytes.data(), static_cast<std::size_t>(bytes.size())}));
  return book->allPersonsCount() == 0 ? nullptr : book;
}

}  // namespace ovcontacts
