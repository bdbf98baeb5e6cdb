#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/archive/key_sequence.h"
#include "platform/archive/plist_reader.h"
#include "platform/archive/read_classes.h"

namespace ov::detail {

/// The keys that several archived objects have, one like the other.
struct ArchiveShape {
  static constexpr std::uint32_t kAbsent = KeySequence::kNone - 1;

  std::span<const std::byte> keys;  // their references, in the block
  std::uint32_t classPosition;      // kAbsent when there is none
  std::uint64_t classItem = 0;      // what was there last, and the class that it is
  const ArchivedClass* objectClass = nullptr;
  KeySequence positions{};  // of constant keys that were looked for
};

/// The fields of one archived object while it is being read.
struct ArchiveFields {
  PlistItem dictionary;
  /// Null where too many keys, or combinations of keys, have been met to know them.
  ArchiveShape* shape = nullptr;
  mutable KeySequence::Walk nextKey{};

  /// For a class that asks for its fields by keys whose texts never change.
  void learnKeys() {
    if (shape != nullptr) nextKey = KeySequence::Walk(&shape->positions);
  }
};

/// Finds fields by their keys. Most objects have the keys of one met before.
class ReadFields {
 public:
  using Item = std::uint64_t;

  ReadFields(PlistReader& plist, ReadClasses& classes) : plist_(plist), classes_(classes) {}

  /// Throws `OVInvalidArchive` where a key is not text.
  [[nodiscard]] ArchiveFields open(const PlistItem& dictionary);

  /// The item under a key of the object's own. The first of two counts.
  [[nodiscard]] std::optional<Item> find(const ArchiveFields& fields, std::string_view key) {
    const std::uint32_t known = fields.nextKey.next(key);
    return valueAt(fields, known == KeySequence::kNone ? lookUp(fields, key) : known);
  }
  /// The same, read, where it is of that kind. `ascii` means any text.
  [[nodiscard]] std::optional<PlistItem> find(const ArchiveFields& fields, std::string_view key,
                                              PlistItem::Kind kind);
  /// Throws `OVInvalidArchive` where the object has no class.
  [[nodiscard]] const ArchivedClass& classOf(const ArchiveFields& fields);

 private:
  static constexpr std::size_t kMaxShapes = 128;
  static constexpr std::size_t kMaxKeys = 64;

  ArchiveShape*& slotOf(Item firstKey, std::span<const std::byte> keys);
  [[gnu::cold]] void checkKeys(const PlistItem& dictionary);
  std::uint32_t lookUp(const ArchiveFields& fields, std::string_view key);
  [[nodiscard]] std::uint32_t positionOf(const PlistItem& dictionary, std::string_view key);
  [[nodiscard]] std::optional<Item> valueAt(const ArchiveFields& fields,
                                            std::uint32_t position) const {
    if (position == ArchiveShape::kAbsent) return std::nullopt;
    return plist_.reference(fields.dictionary, fields.dictionary.count + position);
  }

  PlistReader& plist_;
  ReadClasses& classes_;
  std::deque<ArchiveShape> shapes_;
  std::array<ArchiveShape*, 2 * kMaxShapes> shapesByKeys_{};
  std::string scratch_;
};

}  // namespace ov::detail
