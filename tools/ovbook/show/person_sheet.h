#pragma once

#include <iosfwd>

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/person_general.h>

namespace ovbook {

/// Writes everything that is known of a person: a heading, then a line for each datum with its
/// property and label. The main entry of several has a star after its label. `person` is null when
/// the book holds something else under the ID. `tags` are those of the tag store, null when none
/// was asked for.
void printPerson(const OVString& ID, const OVRef<OVPersonGeneral>& person,
                 const OVList<OVString>& tags, std::ostream& out);

}  // namespace ovbook
