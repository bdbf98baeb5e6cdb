#pragma once

#include "book_content.h"

namespace ov::vcard {

/// Puts every missing member that the book holds by now into its group. A group that would come to
/// stand inside itself is left out, and reported.
void joinMembers(BookContent& book);

}  // namespace ov::vcard
