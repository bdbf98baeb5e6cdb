#pragma once

#include <OVAddressBookSDK/person.h>

namespace ov::card {

/// How a person is called.
struct Heading {
  /// Null for a person of whom nothing is known that could be a name.
  OVString main;
  /// The person in an organisation; null for none.
  OVString below;
};

/// The name; the company of an organisation; else the first of what tells the person apart.
[[nodiscard]] Heading headingOf(const IOVPerson& person);

}  // namespace ov::card
