#pragma once

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/text.h>

/// How a person is called.
struct OVPersonHeading {
  /// Null for a person of whom nothing is known that could be a name.
  OVString main;
  /// The person in an organisation; null for none.
  OVString below;
};

namespace ov {

/// The heading of a person of any book: the display name; the company of an organisation, with the
/// display name below; else the first of company, nickname, e-mail address, phone number, account
/// and URL. It asks for `displayName` and for values, whatever shape they have.
[[nodiscard]] OV_EXPORT OVPersonHeading headingOf(const IOVPerson& person);

/// Whether the person is an organisation: the text under "Is Organization" is there and is none of
/// "", "0", "no" and "false" in any case.
[[nodiscard]] OV_EXPORT bool isOrganization(const IOVPerson& person);

}  // namespace ov
