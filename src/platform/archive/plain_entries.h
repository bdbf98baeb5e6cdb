#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/archive/plist_reader.h"
#include "platform/archive/reading_budget.h"

namespace ov::detail {

/// Looks into dictionaries that are read once: the archive's head, the records of its classes.
class PlainEntries {
 public:
  PlainEntries(const PlistReader& plist, ReadingBudget& budget) : plist_(plist), budget_(budget) {}

  /// The value under a key, all of whose characters are ASCII. The first of two counts.
  [[nodiscard]] std::optional<PlistItem> find(const PlistItem& dictionary, std::string_view key);
  /// The same for a value that an archive must have; throws `OVInvalidArchive`.
  [[nodiscard]] PlistItem required(const PlistItem& dictionary, std::string_view key,
                                   PlistItem::Kind kind);

 private:
  const PlistReader& plist_;
  ReadingBudget& budget_;
};

/// A key of a dictionary; throws `OVInvalidArchive` for one that is not text.
[[nodiscard]] PlistItem keyAt(const PlistReader& plist, std::uint64_t object);

}  // namespace ov::detail
