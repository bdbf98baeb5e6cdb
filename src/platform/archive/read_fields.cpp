// Objects with the same keys share a shape, found by the bytes of their key references. A class
// that asks for its keys in the usual order finds each field by position, without comparing texts.

#include "platform/archive/read_fields.h"

#include <cstring>

#include "platform/archive/archive_keys.h"
#include "platform/archive/plain_entries.h"

namespace ov::detail {

ArchiveFields ReadFields::open(const PlistItem& dictionary) {
  if (dictionary.count == 0) return {dictionary};
  if (dictionary.count > kMaxKeys) {
    checkKeys(dictionary);
    return {dictionary};
  }
  const std::span<const std::byte> keys = plist_.keys(dictionary);
  ArchiveShape*& shape = slotOf(plist_.reference(dictionary, 0), keys);
  if (shape == nullptr) {
    checkKeys(dictionary);
    if (shapes_.size() == kMaxShapes) return {dictionary};
    plist_.charge(2 * sizeof(ArchiveShape));
    shapes_.push_back({keys, positionOf(dictionary, archive::kClass)});
    shape = &shapes_.back();
  }
  return {dictionary, shape};
}

/// Where the shape with these keys is, or else would be. There is always room for one more.
ArchiveShape*& ReadFields::slotOf(Item firstKey, std::span<const std::byte> keys) {
  for (Item at = firstKey * 31 + keys.size();; ++at) {
    ArchiveShape*& slot = shapesByKeys_[static_cast<std::size_t>(at % shapesByKeys_.size())];
    if (slot == nullptr || (slot->keys.size() == keys.size() &&
                            std::memcmp(slot->keys.data(), keys.data(), keys.size()) == 0)) {
      return slot;
    }
  }
}

void ReadFields::checkKeys(const PlistItem& dictionary) {
  if (dictionary.count >= ArchiveShape::kAbsent) throw OVInvalidArchive("too many keys");
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    const PlistItem key = keyAt(plist_, dictionary, i);
    plist_.charge(key.count + 1);
    if (key.kind == PlistItem::Kind::ascii) (void)plist_.text(key, scratch_);
  }
}

const ArchivedClass& ReadFields::classOf(const ArchiveFields& fields) {
  ArchiveShape* shape = fields.shape;
  const auto item =
      valueAt(fields, shape == nullptr ? positionOf(fields.dictionary, archive::kClass)
                                       : shape->classPosition);
  if (!item) throw OVInvalidArchive("an object of the archive has no class");
  if (shape == nullptr) return classes_.record(*item);
  if (shape->objectClass == nullptr || shape->classItem != *item) {
    shape->objectClass = &classes_.record(*item);
    shape->classItem = *item;
  }
  return *shape->objectClass;
}

std::optional<PlistItem> ReadFields::find(const ArchiveFields& fields, std::string_view key,
                                          PlistItem::Kind kind) {
  const auto item = find(fields, key);
  if (!item) return std::nullopt;
  const PlistItem found = plist_.item(*item);
  const bool isWanted =
      kind == PlistItem::Kind::ascii ? PlistReader::isText(found) : found.kind == kind;
  return isWanted ? std::optional(found) : std::nullopt;
}

std::uint32_t ReadFields::lookUp(const ArchiveFields& fields, std::string_view key) {
  const std::uint32_t position =
      key.starts_with(archive::kReserved)
          ? positionOf(fields.dictionary, archive::kReserved + std::string(key))
          : positionOf(fields.dictionary, key);
  if (fields.nextKey.isLearning()) plist_.charge(KeySequence::kMemoryPerKey);
  fields.nextKey.add(key, position);
  return position;
}

std::uint32_t ReadFields::positionOf(const PlistItem& dictionary, std::string_view key) {
  const auto found = detail::positionOf(plist_, dictionary, key);
  return found ? static_cast<std::uint32_t>(*found) : ArchiveShape::kAbsent;
}

}  // namespace ov::detail
