#pragma once

#include <iosfwd>

#include <OVAddressBookSDK/address_book_general.h>

namespace ovbook {

/// Writes a group of `book`: its title, then its sub-groups and members by ID, with their names
/// where the book knows them. `group` is null when the book holds something else under the ID.
void printGroup(const OVString& ID, const OVRef<OVGroupGeneral>& group,
                const OVAddressBookGeneral& book, std::ostream& out);

}  // namespace ovbook
