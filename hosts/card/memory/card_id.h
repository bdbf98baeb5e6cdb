#pragma once

#include <string>

#include <OVAddressBookSDK/text.h>

#include "mapping/reading.h"

namespace ov::card {

/// A UUID made from the properties of a card: cards that differ in no more than folding, line ends,
/// encodings and character sets get the same.
[[nodiscard]] std::string contentID(const Lines& lines);

[[nodiscard]] OVString randomID();

}  // namespace ov::card
