#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/text.h>

#include "content_lines.h"

namespace ov::vcard {

/// A UUID made from the properties of a card: cards that differ in no more than folding, line ends,
/// encodings and character sets get the same.
[[nodiscard]] std::string contentID(const std::vector<ContentLine>& lines);

[[nodiscard]] OVString randomID();

/// What an ID is compared by where one card refers to another: "urn:uuid:" may stand before it or
/// not, and case does not matter.
[[nodiscard]] std::string referenceKey(std::string_view id);

/// The ID as the URI by which other cards refer to it.
[[nodiscard]] std::string referenceTo(std::string_view id);

}  // namespace ov::vcard
