#pragma once

#include <OVAddressBookSDK/address_book.h>

namespace ov::vcard {

/// `exportBook` for those who have no reference to the book.
[[nodiscard]] OVRef<OVData> cardsOf(const OVAddressBook& book);

}  // namespace ov::vcard
