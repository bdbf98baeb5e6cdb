// Objects with the same keys share a shape, found by the bytes of their key references. A class
// that asks for its keys in the usual order finds each field by position, without comparing texts.

#include "platform/archive/read_fields.h"

#include <cstring>

#include "platform/archive/plain_entries.h"

namespace ov::detail {

namespace {

constexpr std::uint64_t kMaxKeys = 64;

/// Some dozens of bytes mostly: fewer than a call is worth.
bool isSame(std::span<const std::byte> a, std::span<const std::byte> b) {
  if (a.size() != b.size()) return false;
  std::size_t at = 0;
  for (std::uint64_t x = 0, y = 0; a.size() - at >= sizeof x; at += sizeof x) {
    std::memcpy(&x, a.data() + at, sizeof x);
    std::memcpy(&y, b.data() + at, sizeof y);
    if (x != y) return false;
  }
  for (; at < a.size(); ++at) {
    if (a[at] != b[at]) return false;
  }
  return true;
}

}  // namespace

ArchiveFields ReadFields::open(const PlistItem& dictionary) {
  budget_.charge(dictionary.count * 3 * sizeof(std::uint32_t));  // the numbers' memory grows ahead
  if (dictionary.count == 0 || dictionary.count > kMaxKeys) return openNew(dictionary);
  const std::span<const std::byte> keys = plist_.keys(dictionary);
  ArchiveShape*& recent = slotOf(plist_.reference(dictionary, 0), keys);
  if (recent != nullptr) {
    return {dictionary, recent, numbers_.size(), false, KeySequence::Walk(recent->positions)};
  }
  const ArchiveFields fields = openNew(dictionary);
  if (shapes_.size() == kMaxShapes) return fields;
  budget_.charge(2 * sizeof(ArchiveShape) + keys.size());
  const auto numbers = numbers_.from(fields.firstKey);
  shapes_.push_back(
      {keys, {numbers.begin(), numbers.end()}, positionOf(fields, classKey_), 0, nullptr, {}});
  recent = &shapes_.back();
  return fields;
}

/// Where the shape with these keys is, or else would be. There is always room for one more.
ArchiveShape*& ReadFields::slotOf(Item firstKey, std::span<const std::byte> keys) {
  for (Item at = firstKey * 31 + keys.size();; ++at) {
    ArchiveShape*& slot = shapesByKeys_[static_cast<std::size_t>(at % shapesByKeys_.size())];
    if (slot == nullptr || isSame(slot->keys, keys)) return slot;
  }
}

ArchiveFields ReadFields::openNew(const PlistItem& dictionary) {
  if (dictionary.count >= ArchiveShape::kAbsent) throw OVInvalidArchive("too many keys");
  const ArchiveFields fields{dictionary, nullptr, numbers_.size()};
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    numbers_.push_back(numberOf(plist_.reference(dictionary, i)));
  }
  return fields;
}

std::uint32_t ReadFields::newNumberOf(Item key, RecentKey& recent) {
  const PlistItem found = keyAt(plist_, key);
  budget_.charge(found.count);
  const std::string_view text = plist_.text(found, scratch_);
  std::uint32_t number = keys_.find(text);
  if (number == KeyNumbers::kNone) {
    budget_.charge(text.size() + 128);
    number = keys_.add(text);
  }
  recent = {key, number};
  return number;
}

const ArchivedClass& ReadFields::classOf(const ArchiveFields& fields) {
  ArchiveShape* shape = fields.shape;
  const auto item =
      valueAt(fields, shape == nullptr ? positionOf(fields, classKey_) : shape->classPosition);
  if (!item) throw OVInvalidArchive("an object of the archive has no class");
  if (shape == nullptr) return classes_.record(objects_.uidOf(*item));
  if (shape->objectClass == nullptr || shape->classItem != *item) {
    shape->objectClass = &classes_.record(objects_.uidOf(*item));
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
  const bool isReserved = key.starts_with(archive::kReserved);
  const std::uint32_t number =
      isReserved ? keys_.find(archive::kReserved + std::string(key)) : keys_.find(key);
  const std::uint32_t position =
      number == KeyNumbers::kNone ? ArchiveShape::kAbsent : positionOf(fields, number);
  if (fields.shape != nullptr && fields.hasConstantKeys) {
    budget_.charge(KeySequence::kMemoryPerKey);
    fields.nextKey.add(key, position);
  }
  return position;
}

std::uint32_t ReadFields::positionOf(const ArchiveFields& fields, std::uint32_t number) const {
  const auto numbers = fields.shape == nullptr
                           ? numbers_.from(fields.firstKey)
                           : std::span<const std::uint32_t>(fields.shape->numbers);
  const auto count = static_cast<std::uint32_t>(fields.dictionary.count);
  for (std::uint32_t i = 0; i < count; ++i) {
    if (numbers[i] == number) return i;
  }
  return ArchiveShape::kAbsent;
}

}  // namespace ov::detail
