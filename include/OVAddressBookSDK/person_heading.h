#pragma once

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/text.h>

/// What a person is called.
struct OVPersonHeading {
  /// Null when nothing is known of the person that could serve as a name.
  OVString main;
  /// The person in an organisation; null if there is none.
  OVString below;
};

namespace ov {

/// The heading of a person of any book: the display name; the company of an organisation, with the
/// display name below; else the first of company, nickname, e-mail address, phone number, account
/// and URL. It calls `displayName` and reads values, single or multiple.
[[nodiscard]] OV_EXPORT OVPersonHeading headingOf(const IOVPerson& person);

/// Whether the person is an organisation: there is a text under "Is Organization", and it is none
/// of "", "0", "no" and "false" in any case.
[[nodiscard]] OV_EXPORT bool isOrganization(const IOVPerson& person);

}  // namespace ov
