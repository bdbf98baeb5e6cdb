#pragma once

#include <cstdint>

#include <OVAddressBookSDK/text.h>

enum class OVVCardSeverity : std::uint8_t {
  /// Everything was taken over, but not exactly as it stood.
  Warning,
  /// Some of the text could not be read and was left out.
  Error,
};

/// Something in a vCard file that did not go in as it stood.
struct OVVCardProblem {
  /// How much of it was lost.
  OVVCardSeverity severity = OVVCardSeverity::Error;
  /// The file as it was named to the book; null for cards that came from no file.
  OVString file;
  /// Where the card or the line begins; the first line is 1.
  std::uint64_t line = 0;
  /// One sentence in English, without file and line.
  OVString reason;
};
