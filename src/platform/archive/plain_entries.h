#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/archive/plist_reader.h"

/// Looks into dictionaries: the archive's head, the records of its classes, an object's fields.
namespace ov::detail {

/// A key of a dictionary; throws `OVInvalidArchive` for one that is not text.
[[nodiscard]] PlistItem keyAt(const PlistReader& plist, const PlistItem& dictionary,
                              std::uint64_t position);

/// Where a key is. The first of two counts.
[[nodiscard]] std::optional<std::uint64_t> positionOf(PlistReader& plist,
                                                      const PlistItem& dictionary,
                                                      std::string_view key);

/// The value under a key.
[[nodiscard]] std::optional<PlistItem> plainEntry(PlistReader& plist, const PlistItem& dictionary,
                                                  std::string_view key);

/// The same for a value that an archive must have; throws `OVInvalidArchive`.
[[nodiscard]] PlistItem requiredEntry(PlistReader& plist, const PlistItem& dictionary,
                                      std::string_view key, PlistItem::Kind kind);

}  // namespace ov::detail
