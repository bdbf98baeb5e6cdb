#pragma once

#include <optional>

#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/text.h>

namespace ov::vcard {

/// What a person is called; see `ov::headingOf`.
using Heading = OVPersonHeading;
using ov::headingOf;

/// An entry of "Other" as a person would read it.
struct ReadableOther {
  /// What it is: "X-SHOE-SIZE", or the user's own words.
  OVString label;
  /// What it says, without the backslashes of a vCard. May have several lines.
  OVString text;
  /// Whether it is a line of a card; the name of its label says how that was spelled.
  bool isLine = false;
};

/// Null for an entry that says nothing of its own: the one that keeps how lines of the card were
/// spelled, so that they come back on export.
[[nodiscard]] std::optional<ReadableOther> readableOther(const OVSingleValue& entry);

}  // namespace ov::vcard
