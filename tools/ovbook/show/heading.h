#pragma once

#include <OVAddressBookSDK/person_general.h>

namespace ovbook {

/// How a person is called.
struct Heading {
  /// The name; the company of an organisation; else whatever tells the person apart, and last the
  /// ID.
  OVString main;
  /// The person in an organisation; null for none.
  OVString below;
};

[[nodiscard]] Heading headingOf(const OVString& ID, const OVPersonGeneral& person);

}  // namespace ovbook
