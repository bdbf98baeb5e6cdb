#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The bytes of a binary property list. Stored in files: do not change.
namespace ov::detail::plist {

inline constexpr std::string_view kHeader = "bplist00";
inline constexpr std::size_t kTrailerSize = 32;

/// High half of an object's first byte; the low half is a length or a width.
enum Marker : std::uint8_t {
  kSingle = 0x00,
  kInteger = 0x10,
  kReal = 0x20,
  kDate = 0x30,
  kData = 0x40,
  kAscii = 0x50,
  kUtf16 = 0x60,
  kUid = 0x80,
  kArray = 0xA0,
  kSet = 0xC0,
  kDictionary = 0xD0,
};

/// Whole bytes of the kind `kSingle`.
inline constexpr std::uint8_t kNull = 0x00;
inline constexpr std::uint8_t kFalse = 0x08;
inline constexpr std::uint8_t kTrue = 0x09;

/// The low half that says: the length follows as an integer object.
inline constexpr std::uint8_t kLengthFollows = 0x0F;

}  // namespace ov::detail::plist
