#pragma once

#include <OVAddressBookSDK/address_book_general.h>

namespace ovbook {

/// A general book with the persons and groups of `book`. Where nobody else holds that, each copied
/// person takes the room of the one before.
[[nodiscard]] OVRef<OVAddressBookGeneral> snapshotOf(OVRef<const OVAddressBook> book);

}  // namespace ovbook
