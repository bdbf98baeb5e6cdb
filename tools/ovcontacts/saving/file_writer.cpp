#include "saving/file_writer.h"

#include <QtCore/QFile>

#include <exception>
#include <utility>

#include <OVAddressBookVCard/vcard_export.h>

#include "loading/mailbox.h"

namespace ovcontacts {

namespace {

QString write(const QString& path, const OVRef<OVData>& bytes) {
  try {
    const auto error = ov::vcard::writeFile(QFile::encodeName(path).toStdString(), bytes);
    return error ? QString::fromStdString(error.message()) : QString();
  } catch (const std::exception& error) {
    return QString::fromUtf8(error.what());
  }
}

}  // namespace

FileWriter::FileWriter(QObject* parent) : QObject(parent) {}

FileWriter::~FileWriter() { forget(); }

void FileWriter::forget() {
  if (mailbox_ != nullptr) mailbox_->close();
  mailbox_.reset();
}

void FileWriter::start(const QString& path, OVRef<OVData> bytes) {
  mailbox_ = std::make_shared<Mailbox>(this);
  inBackground(mailbox_, [this, path, bytes = std::move(bytes)] {
    return [this, wrong = write(path, bytes)] {
      forget();
      emit written(wrong);
    };
  });
}

}  // namespace ovcontacts
