#pragma once

#include <string>

#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/person.h>

#include "codec/card.h"
#include "reading.h"

namespace ov::card {

/// Appends the person as a new card. A null or empty ID is left out.
void writePerson(const IOVPerson& person, const OVString& id, std::string& out,
                 Version version = Version::V4_0);

/// Appends the card that the person came from: unchanged where the person still says the same, else
/// with those of its lines changed that no longer hold. `photo` is as for `PersonReading`.
void rewritePerson(const Card& card, const IOVPerson& person, const OVString& id,
                   const OVRef<OVImage>& photo, std::string& out);

/// What the values do not say about the card, for an entry of "Other"; null for nothing.
[[nodiscard]] OVString oddLinesOf(const Lines& lines, const PersonReading& reading);

}  // namespace ov::card
