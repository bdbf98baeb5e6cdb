#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/person.h>

#include "others.h"

namespace ov::vcard {

/// Appends the card of a person. A null or empty ID is left out.
void writePerson(const IOVPerson& person, const OVString& id, std::string& out);

/// Appends the card of a group. `members` are the IDs of persons and sub-groups.
void writeGroup(const OVString& id, const OVString& name, const std::vector<OVString>& members,
                const std::vector<KeptLine>& others, std::string& out);

}  // namespace ov::vcard
