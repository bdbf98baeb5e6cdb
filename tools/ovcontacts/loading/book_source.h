#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>

#include <OVAddressBookSDK/address_book.h>

#include "loading/cancellation.h"

namespace ovcontacts {

class LiveBook;

/// What a book is kept as.
enum class Format {
  Block,  ///< a data block
  Cards,  ///< vCards in a file
  Live,   ///< a store that keeps what is saved by itself
};

/// A book, ready to be shown.
struct OpenedBook {
  OVRef<OVAddressBook> book;
  Format format = Format::Block;
  /// "" where the book cannot be saved under the name it was opened by.
  QString path;
  /// What was not imported verbatim; "" for nothing.
  QString remarks;
  /// What keeps a live book; null for others.
  std::shared_ptr<LiveBook> live = nullptr;
};

/// Why a book could not be opened, in words for people.
class OpeningError : public std::runtime_error {
 public:
  explicit OpeningError(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

/// Something that a book can be opened from: a file, or a live book of the desktop.
class BookSource {
 public:
  BookSource() = default;
  BookSource(const BookSource&) = delete;
  BookSource& operator=(const BookSource&) = delete;
  virtual ~BookSource() = default;

  /// How far it is, and how much there is; 0 of 0 for what is not known.
  using Progress = std::function<void(std::uint64_t done, std::uint64_t all)>;

  /// What people call it.
  [[nodiscard]] virtual QString name() const = 0;
  /// Opens the book. Called on a thread of its own, and may take as long as it needs: it throws
  /// `Cancelled` soon after it was cancelled, and `OpeningError` when there is nothing to open.
  [[nodiscard]] virtual OpenedBook open(const Progress& progress,
                                        const Cancellation& cancellation) = 0;
};

}  // namespace ovcontacts
