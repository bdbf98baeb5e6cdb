#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/archive_slot.h"
#include "platform/archive/class_table.h"
#include "platform/archive/growing_array.h"
#include "platform/archive/key_numbers.h"
#include "platform/archive/key_sequence.h"
#include "platform/archive/large_memory.h"
#include "platform/archive/plist_reader.h"
#include "platform/object_arena.h"

namespace ov::detail {

/// What an archive says of a class.
struct ArchivedClass {
  OVString name;
  std::vector<OVString> classes;
  std::vector<OVString> hints;
  const OVClass* known = nullptr;  // null: opaque, or of the archive's own forms
  bool isHosts = false;
};

/// The keys that several archived objects have, one like the other.
struct ArchiveShape {
  static constexpr std::uint32_t kAbsent = KeySequence::kNone - 1;

  std::span<const std::byte> keys;     // their references, in the block
  std::vector<std::uint32_t> numbers;  // of the keys
  std::uint32_t classPosition;         // kAbsent when there is none
  std::uint64_t classItem = 0;         // what stood there last, and the class that it is
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

/// Builds an object graph from a keyed archive.
///
/// An object is known under its UID before it is filled. Up to a bound, an object is filled as soon
/// as it is met; deeper ones wait until the shallower are done, so that no archive is too deep.
///
/// "Object" is an object of the graph; "item" one of the property list, given by its number.
class ArchiveReader {
 public:
  enum class Known : std::uint8_t { registeredClasses, noClasses };
  using Item = std::uint64_t;

  ArchiveReader(std::span<const std::byte> block, Known known);

  /// Throws `OVInvalidArchive`; what was built by then is let go of, rings included.
  OVRef<OVObject> root();

  /// The item under a key of the object's own.
  [[nodiscard]] std::optional<Item> find(const ArchiveFields& fields, std::string_view key);
  /// The object of a field: what its UID refers to, or the item itself as an object.
  OVRef<OVObject> objectOf(Item item);
  OVString textOf(Item item);
  [[nodiscard]] const PlistReader& plist() const { return plist_; }

  /// Reads an array of references; leaves `elements` alone when there is none.
  bool readElements(const ArchiveFields& fields, std::string_view key,
                    std::vector<OVRef<OVObject>>& elements);
  /// Reads the keys and values of a dictionary.
  void readEntries(const ArchiveFields& fields, DictionaryObject& dictionary);
  /// Reads the elements of a list object that the caller makes its own.
  bool readList(Item item, std::vector<OVRef<OVObject>>& elements);
  void fillOpaque(OVOpaqueObject& object, const PlistItem& dictionary);

 private:
  /// How deep objects are filled inside each other, and how deep containers may stand in one
  /// object.
  static constexpr unsigned kDeepest = 512;
  static constexpr std::size_t kMostShapes = 128;

  struct Waiting {
    OVRef<OVObject> object;
    Item item;
  };
  struct InlineLeaf {
    PlistItem item;
    OVRef<OVObject> object;
  };
  class Deeper {
   public:
    explicit Deeper(unsigned& depth) : depth_(++depth) {}
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;
    ~Deeper() { --depth_; }

   private:
    unsigned& depth_;
  };
  struct RecentKey {
    Item item = ~Item{0};
    std::uint32_t number = 0;
  };
  struct RecentClass {
    std::uint64_t uid = 0;
    const ArchivedClass* record = nullptr;
  };

  OVRef<OVObject> readRoot();
  OVRef<OVObject> readTop(const PlistItem& top);
  PlistItem requiredEntry(const PlistItem& dictionary, std::string_view key, PlistItem::Kind kind);
  std::optional<PlistItem> entry(const PlistItem& dictionary, std::string_view key);
  [[nodiscard]] PlistItem key(Item item) const;
  std::string_view keyText(const PlistItem& dictionary, std::uint64_t position);

  void checkUid(std::uint64_t uid) const;
  [[nodiscard]] std::uint64_t uidOf(Item item) const;
  [[nodiscard]] Item itemAt(std::uint64_t uid) const { return plist_.reference(objects_, uid); }
  ArchiveSlot& slotAt(std::uint64_t uid);
  OVRef<OVObject> objectAt(std::uint64_t uid);
  OVRef<OVObject> leaf(const PlistItem& item);
  OVString newText(const PlistItem& item);
  OVRef<OVObject> build(std::uint64_t uid, const PlistItem& dictionary);
  void fill(OVObject& object, const ArchiveFields& fields);
  void fillWaiting();

  const ArchivedClass& classOf(const ArchiveFields& fields);
  const ArchivedClass& classRecord(std::uint64_t uid);
  const ArchivedClass& newClassRecord(std::uint64_t uid);
  ArchivedClass readClassRecord(std::uint64_t uid);
  std::vector<OVString> textArray(const PlistItem& array);
  std::optional<PlistItem> form(const ArchiveFields& fields, std::string_view key,
                                PlistItem::Kind kind);
  OVRef<OVObject> makeEmpty(const ArchivedClass& record, const ArchiveFields& fields);
  OVRef<OVObject> makeLeaf(std::string_view className, const ArchiveFields& fields);
  OVRef<OVObject> makeCollection(std::string_view className, const ArchiveFields& fields);
  OVRef<OVObject> makeOpaque(const ArchivedClass& record);
  bool areTexts(const PlistItem& array);
  bool isText(std::uint64_t uid);

  std::vector<OVOpaqueField> opaqueFields(const PlistItem& dictionary, unsigned depth);
  OVOpaqueValue opaqueValue(Item item, unsigned depth);
  OVRef<OVObject> inlineLeaf(const PlistItem& item);
  OVOpaqueValue::Array opaqueArray(const PlistItem& container, unsigned depth);

  ArchiveFields openFields(const PlistItem& dictionary);
  ArchiveShape** shapeSlot(Item firstKey, std::span<const std::byte> keys);
  [[gnu::cold]] ArchiveFields openNewFields(const PlistItem& dictionary);
  void closeFields(const ArchiveFields& fields) { keyNumbers_.truncate(fields.firstKey); }
  std::uint32_t findAnew(const ArchiveFields& fields, std::string_view key);
  [[nodiscard]] std::uint32_t positionOf(const ArchiveFields& fields, std::uint32_t number) const;
  [[nodiscard]] std::optional<Item> valueAt(const ArchiveFields& fields,
                                            std::uint32_t position) const;
  std::uint32_t numberOfKey(Item item);
  [[gnu::cold]] std::uint32_t newNumberOfKey(Item item, RecentKey& recent);
  void charge(std::uint64_t bytes);
  void breakRings() noexcept;

  PlistReader plist_;
  ObjectArena arena_;
  Known known_;
  PlistItem objects_;
  std::vector<ArchiveSlot, LargeAllocator<ArchiveSlot>> slots_;  // by UID, up to the last one used
  std::unordered_map<const std::byte*, InlineLeaf> inlineLeaves_;
  std::unordered_map<std::uint64_t, ArchivedClass> classRecords_;
  std::array<RecentClass, 64> recentClasses_{};
  std::vector<Waiting> waiting_;
  unsigned depth_ = 0;  // of objects and of plain containers in them
  std::uint64_t budget_;

  KeyNumbers keys_;
  std::uint32_t classKey_;
  std::array<RecentKey, 512> recentKeys_{};
  GrowingArray<std::uint32_t> keyNumbers_;
  std::deque<ArchiveShape> shapes_;
  std::array<ArchiveShape*, 2 * kMostShapes> shapesByKeys_{};
  std::string scratch_;
};

inline void ArchiveReader::charge(std::uint64_t bytes) {
  if (bytes > budget_) {
    throw OVInvalidArchive("the block would take far more memory than its size allows");
  }
  budget_ -= bytes;
}

/// There is room for all of them: a slot stays where it is.
inline ArchiveSlot& ArchiveReader::slotAt(std::uint64_t uid) {
  const auto at = static_cast<std::size_t>(uid);
  if (at >= slots_.size()) slots_.resize(at + 1);
  return slots_[at];
}

inline std::uint32_t ArchiveReader::numberOfKey(Item item) {
  RecentKey& recent = recentKeys_[static_cast<std::size_t>(item % recentKeys_.size())];
  return recent.item == item ? recent.number : newNumberOfKey(item, recent);
}

inline std::optional<ArchiveReader::Item> ArchiveReader::valueAt(const ArchiveFields& fields,
                                                                 std::uint32_t position) const {
  if (position == ArchiveShape::kAbsent) return std::nullopt;
  return plist_.reference(fields.dictionary, fields.dictionary.count + position);
}

inline std::optional<ArchiveReader::Item> ArchiveReader::find(const ArchiveFields& fields,
                                                              std::string_view key) {
  const bool isLearned = fields.shape != nullptr && fields.hasConstantKeys;
  const std::uint32_t known = isLearned ? fields.nextKey.next(key) : KeySequence::kNone;
  return valueAt(fields, known == KeySequence::kNone ? findAnew(fields, key) : known);
}

inline const ArchivedClass& ArchiveReader::classRecord(std::uint64_t uid) {
  const RecentClass& recent = recentClasses_[static_cast<std::size_t>(uid % recentClasses_.size())];
  return recent.record != nullptr && recent.uid == uid ? *recent.record : newClassRecord(uid);
}

}  // namespace ov::detail
