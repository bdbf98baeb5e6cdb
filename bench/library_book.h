#pragma once

#include <cstdint>

#include <OVAddressBookSDK/address_book_general.h>

namespace bench {

/// A general book of the first `count` sample persons; every value has a label of its own.
[[nodiscard]] OVRef<OVAddressBookGeneral> libraryBook(std::uint32_t count);

}  // namespace bench
