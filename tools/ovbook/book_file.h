#pragma once

#include <string>

#include <OVAddressBookSDK/address_book_general.h>

namespace ovbook {

/// The book in a file. Throws `Failure` when the file cannot be read, is damaged, or holds
/// something else.
[[nodiscard]] OVRef<OVAddressBookGeneral> openBook(const std::string& path);

/// The book's persons, with what lists show of them; never null. Throws `Failure` as `openBook`
/// does, but not for damage in the rest of the book.
[[nodiscard]] OVDictionary<const OVPersonGeneral> personsToList(const std::string& path);

/// The book's persons and groups by ID; never null.
[[nodiscard]] OVDictionary<OVPersonGeneral> personsOf(const OVAddressBookGeneral& book);
[[nodiscard]] OVDictionary<OVGroupGeneral> groupsOf(const OVAddressBookGeneral& book);

}  // namespace ovbook
