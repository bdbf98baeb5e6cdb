#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/archive/archive_slot.h"
#include "platform/archive/large_memory.h"
#include "platform/archive/plist_reader.h"

namespace ov::detail {

/// The objects of an archive by their UIDs: where they are in the property list, and what was made
/// of them.
class ReadObjects {
 public:
  explicit ReadObjects(PlistReader& plist) : plist_(plist) {}

  /// Begins with the array that lists them.
  void open(const PlistItem& array) {
    array_ = array;
    plist_.charge(array.count * sizeof(ArchiveSlot));
    slots_.reserve(static_cast<std::size_t>(array.count));
  }

  /// Throws `OVInvalidArchive` where there is no such object.
  [[nodiscard]] std::uint64_t checked(std::uint64_t uid) const {
    if (uid >= array_.count) refuse(uid);
    return uid;
  }
  /// The UID that an item is, if it is one, checked.
  [[nodiscard]] std::optional<std::uint64_t> uidAt(std::uint64_t item) const {
    const auto uid = plist_.uidAt(item);
    return uid ? std::optional(checked(*uid)) : std::nullopt;
  }
  /// The same; throws `OVInvalidArchive` for anything else.
  [[nodiscard]] std::uint64_t uidOf(std::uint64_t item) const {
    const auto uid = uidAt(item);
    if (!uid) throw OVInvalidArchive("a reference that is not a UID");
    return *uid;
  }
  /// The item of an object, and its number in the property list. The UID has been checked.
  [[nodiscard]] PlistItem item(std::uint64_t uid) const { return plist_.item(itemNumber(uid)); }
  [[nodiscard]] std::uint64_t itemNumber(std::uint64_t uid) const {
    return plist_.reference(array_, uid);
  }
  /// Stays where it is.
  [[nodiscard]] ArchiveSlot& slot(std::uint64_t uid) {
    const auto at = static_cast<std::size_t>(uid);
    if (at >= slots_.size()) slots_.resize(at + 1);  // there is room for all of them
    return slots_[at];
  }
  [[nodiscard]] std::span<const ArchiveSlot> slots() const { return slots_; }

 private:
  [[noreturn, gnu::cold]] void refuse(std::uint64_t uid) const {
    throw OVInvalidArchive("UID " + std::to_string(uid) + " is past the last of " +
                           std::to_string(array_.count) + " objects");
  }

  PlistReader& plist_;
  PlistItem array_;
  std::vector<ArchiveSlot, LargeAllocator<ArchiveSlot>> slots_;  // up to the last one used
};

}  // namespace ov::detail
