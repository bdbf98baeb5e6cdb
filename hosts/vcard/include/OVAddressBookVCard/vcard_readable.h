#pragma once

#include <optional>

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/text.h>

namespace ov::vcard {

/// How a person is called.
struct Heading {
  /// Null for a person of whom nothing is known that could be a name.
  OVString main;
  /// The person in an organisation; null for none.
  OVString below;
};

/// The heading of a person of any book: the display name; the company of an organisation, with the
/// display name below; else the first of company, nickname, e-mail address, phone number, account
/// and URL.
[[nodiscard]] Heading headingOf(const IOVPerson& person);

/// An entry of "Other" as a person would read it.
struct ReadableOther {
  /// What it is: "X-SHOE-SIZE", or the user's own words.
  OVString label;
  /// What it says, without the backslashes of a vCard. May have several lines.
  OVString text;
  /// Whether it is a line of a card; the name of its label tells how that was spelled.
  bool isLine = false;
};

/// Null for an entry that says nothing of its own: the one that keeps how lines of the card were
/// spelled, so that they come back on export.
[[nodiscard]] std::optional<ReadableOther> readableOther(const OVSingleValue& entry);

}  // namespace ov::vcard
