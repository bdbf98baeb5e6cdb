#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/address_book_general.h>

namespace ovbook {

class Session;

/// The address books of the desktop. All throw `Failure`.
class LiveBooks {
 public:
  LiveBooks(const LiveBooks&) = delete;
  LiveBooks& operator=(const LiveBooks&) = delete;
  virtual ~LiveBooks() = default;

  /// Writes one line a book.
  virtual void list(bool isForPrograms, Session& session) const = 0;
  /// The book with all that is in it.
  [[nodiscard]] virtual OVRef<OVAddressBook> read(const std::string& uid,
                                                  Session& session) const = 0;
  /// Adds the persons who are not there yet, or lists them.
  virtual void add(const OVAddressBookGeneral& book, const std::string& uid, bool isTrial,
                   Session& session) const = 0;

 protected:
  LiveBooks() = default;
};

/// Leaves the work to the program that has what it takes, `ovbook-live`, which takes the place of
/// this one and is given the same arguments.
class LiveBooksElsewhere final : public LiveBooks {
 public:
  explicit LiveBooksElsewhere(std::vector<std::string> arguments)
      : arguments_(std::move(arguments)) {}

  void list(bool isForPrograms, Session& session) const override;
  [[nodiscard]] OVRef<OVAddressBook> read(const std::string& uid, Session& session) const override;
  void add(const OVAddressBookGeneral& book, const std::string& uid, bool isTrial,
           Session& session) const override;

 private:
  [[noreturn]] void leave(Session& session) const;

  std::vector<std::string> arguments_;
};

}  // namespace ovbook
