#pragma once

#include <string>

#include <OVAddressBookVCard/vcard_book.h>

#include "book_content.h"

namespace ov::vcard {

/// Adds the cards in `bytes` to the book. `file` names them in problems and may be null. `progress`
/// may be empty; it is told how many bytes have been read, and at last all of them.
void loadCards(BookContent& book, std::string bytes, const OVString& file,
               const Progress& progress);

}  // namespace ov::vcard
