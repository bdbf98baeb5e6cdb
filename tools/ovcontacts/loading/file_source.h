#pragma once

#include "loading/book_source.h"

namespace ovcontacts {

/// A file with a data block or with vCards, distinguished by its content.
class FileSource final : public BookSource {
 public:
  explicit FileSource(QString path) : path_(std::move(path)) {}

  [[nodiscard]] QString name() const override;
  [[nodiscard]] OpenedBook open(const Progress& progress,
                                const Cancellation& cancellation) override;

 private:
  QString path_;
};

/// The persons in vCards that did not come from a file, such as dropped ones. Null when there are
/// none in the bytes.
[[nodiscard]] OVRef<OVAddressBook> bookOfCards(const QByteArray& bytes);

}  // namespace ovcontacts
