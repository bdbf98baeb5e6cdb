#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/archive/archive_keys.h"
#include "platform/archive/growing_array.h"
#include "platform/archive/key_numbers.h"
#include "platform/archive/key_sequence.h"
#include "platform/archive/plist_reader.h"
#include "platform/archive/read_classes.h"
#include "platform/archive/reading_budget.h"

namespace ov::detail {

/// The keys that several archived objects have, one like the other.
struct ArchiveShape {
  static constexpr std::uint32_t kAbsent = KeySequence::kNone - 1;

  std::span<const std::byte> keys;     // their references, in the block
  std::vector<std::uint32_t> numbers;  // of the keys
  std::uint32_t classPosition;         // kAbsent when there is none
  std::uint64_t classItem = 0;         // what was there last, and the class that it is
  const ArchivedClass* objectClass = nullptr;
  KeySequence positions;  // of constant keys that were looked for
};

/// The fields of one archived object while it is being read.
struct ArchiveFields {
  PlistItem dictionary;
  /// Null when nothing is known of the object's like.
  ArchiveShape* shape = nullptr;
  /// Where the numbers of its keys begin when it has no shape.
  std::size_t firstKey = 0;
  /// Its class asks for its fields by keys whose texts never change.
  bool hasConstantKeys = false;
  mutable KeySequence::Walk nextKey{};
};

/// Finds fields by their keys. Keys are compared as numbers, and most objects have the keys of one
/// met before.
class ReadFields {
 public:
  using Item = std::uint64_t;

  ReadFields(const PlistReader& plist, ReadingBudget& budget, const ReadObjects& objects,
             ReadClasses& classes)
      : plist_(plist),
        budget_(budget),
        objects_(objects),
        classes_(classes),
        classKey_(keys_.add(archive::kClass)) {}

  /// What is opened last is closed first.
  [[nodiscard]] ArchiveFields open(const PlistItem& dictionary);
  void close(const ArchiveFields& fields) { numbers_.truncate(fields.firstKey); }

  /// The item under a key of the object's own. The first of two counts.
  [[nodiscard]] std::optional<Item> find(const ArchiveFields& fields, std::string_view key) {
    const bool isLearned = fields.shape != nullptr && fields.hasConstantKeys;
    const std::uint32_t known = isLearned ? fields.nextKey.next(key) : KeySequence::kNone;
    return valueAt(fields, known == KeySequence::kNone ? lookUp(fields, key) : known);
  }
  /// The same, read, where it is of that kind. `ascii` means any text.
  [[nodiscard]] std::optional<PlistItem> find(const ArchiveFields& fields, std::string_view key,
                                              PlistItem::Kind kind);
  /// Throws `OVInvalidArchive` where the object has no class.
  [[nodiscard]] const ArchivedClass& classOf(const ArchiveFields& fields);

 private:
  static constexpr std::size_t kMaxShapes = 128;

  struct RecentKey {
    Item item = ~Item{0};
    std::uint32_t number = 0;
  };

  ArchiveShape*& slotOf(Item firstKey, std::span<const std::byte> keys);
  [[gnu::cold]] ArchiveFields openNew(const PlistItem& dictionary);
  std::uint32_t lookUp(const ArchiveFields& fields, std::string_view key);
  [[nodiscard]] std::uint32_t positionOf(const ArchiveFields& fields, std::uint32_t number) const;
  [[nodiscard]] std::optional<Item> valueAt(const ArchiveFields& fields,
                                            std::uint32_t position) const {
    if (position == ArchiveShape::kAbsent) return std::nullopt;
    return plist_.reference(fields.dictionary, fields.dictionary.count + position);
  }
  std::uint32_t numberOf(Item key) {
    RecentKey& recent = recentKeys_[static_cast<std::size_t>(key % recentKeys_.size())];
    return recent.item == key ? recent.number : newNumberOf(key, recent);
  }
  [[gnu::cold]] std::uint32_t newNumberOf(Item key, RecentKey& recent);

  const PlistReader& plist_;
  ReadingBudget& budget_;
  const ReadObjects& objects_;
  ReadClasses& classes_;
  KeyNumbers keys_;
  std::uint32_t classKey_;
  std::array<RecentKey, 512> recentKeys_{};
  GrowingArray<std::uint32_t> numbers_;  // of the keys of open objects without a shape
  std::deque<ArchiveShape> shapes_;
  std::array<ArchiveShape*, 2 * kMaxShapes> shapesByKeys_{};
  std::string scratch_;
};

}  // namespace ov::detail
