#pragma once

#include <cstdint>

#include <OVAddressBookSDK/text.h>

enum class OVVCardSeverity : std::uint8_t {
  /// Imported, but not verbatim.
  Warning,
  /// Some of the text could not be read and was left out.
  Error,
};

/// Something in a vCard file that was not imported verbatim.
struct OVVCardProblem {
  /// Whether anything was lost.
  OVVCardSeverity severity = OVVCardSeverity::Error;
  /// The file as the book was given it; null for cards that came from no file.
  OVString file;
  /// Where the card or the line begins; the first line is 1.
  std::uint64_t line = 0;
  /// One sentence in English, without file and line.
  OVString reason;
};
