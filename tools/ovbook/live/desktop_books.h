#pragma once

#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookEDS/eds_session.h>

#include "live_books.h"

namespace ovbook {

/// The address books that evolution-data-server keeps.
class DesktopBooks final : public LiveBooks {
 public:
  void list(bool isForPrograms, Session& session) const override;
  [[nodiscard]] OVRef<OVAddressBook> read(const std::string& uid, Session& session) const override;
  void add(const OVAddressBookGeneral& book, const std::string& uid, bool isTrial,
           Session& session) const override;
};

/// Adds the persons who are not in `target` by their ID, and saves.
void addMissing(const OVAddressBookGeneral& book, OVEDSBook& target, bool isTrial,
                Session& session);

}  // namespace ovbook
