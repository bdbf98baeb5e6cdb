#include <cstring>
#include <string>

#include <OVAddressBookSDK/dictionary.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

namespace {

constexpr std::uint64_t kMostKeys = 64;

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

/// Keys are compared as numbers. Most objects have the keys of one met before, with their numbers.
ArchiveFields ArchiveReader::openFields(const PlistItem& dictionary) {
  charge(dictionary.count * 3 * sizeof(std::uint32_t));  // the numbers' memory grows ahead
  if (dictionary.count == 0 || dictionary.count > kMostKeys) return openNewFields(dictionary);
  const std::span<const std::byte> keys = plist_.keys(dictionary);
  ArchiveShape** const recent = shapeSlot(plist_.reference(dictionary, 0), keys);
  if (*recent != nullptr && isSame((*recent)->keys, keys)) {
    return {dictionary, *recent, keyNumbers_.size(), false,
            KeySequence::Walk((*recent)->positions)};
  }
  const ArchiveFields fields = openNewFields(dictionary);
  if (shapes_.size() == kMostShapes) return fields;
  charge(2 * sizeof(ArchiveShape) + keys.size());
  const auto numbers = keyNumbers_.from(fields.firstKey);
  shapes_.push_back(
      {keys, {numbers.begin(), numbers.end()}, positionOf(fields, classKey_), 0, nullptr, {}});
  *recent = &shapes_.back();
  return fields;
}

/// Where the shape with these keys stands, or else would. There is always room for one more.
ArchiveShape** ArchiveReader::shapeSlot(Item firstKey, std::span<const std::byte> keys) {
  for (Item at = firstKey * 31 + keys.size();; ++at) {
    ArchiveShape*& slot = shapesByKeys_[static_cast<std::size_t>(at % shapesByKeys_.size())];
    if (slot == nullptr || isSame(slot->keys, keys)) return &slot;
  }
}

ArchiveFields ArchiveReader::openNewFields(const PlistItem& dictionary) {
  if (dictionary.count >= ArchiveShape::kAbsent) throw OVInvalidArchive("too many keys");
  const ArchiveFields fields{dictionary, nullptr, keyNumbers_.size()};
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    keyNumbers_.push_back(numberOfKey(plist_.reference(dictionary, i)));
  }
  return fields;
}

std::uint32_t ArchiveReader::newNumberOfKey(Item item, RecentKey& recent) {
  const PlistItem found = key(item);
  charge(found.count);
  const std::string_view text = plist_.text(found, scratch_);
  std::uint32_t number = keys_.find(text);
  if (number == KeyNumbers::kNone) {
    charge(text.size() + 128);
    number = keys_.add(text);
  }
  recent = {item, number};
  return number;
}

std::uint32_t ArchiveReader::findAnew(const ArchiveFields& fields, std::string_view key) {
  const bool isReserved = key.starts_with(archive::kReserved);
  const std::uint32_t number =
      isReserved ? keys_.find(archive::kReserved + std::string(key)) : keys_.find(key);
  const std::uint32_t position =
      number == KeyNumbers::kNone ? ArchiveShape::kAbsent : positionOf(fields, number);
  if (fields.shape != nullptr && fields.hasConstantKeys) {
    charge(KeySequence::kMemoryPerKey);
    fields.nextKey.add(key, position);
  }
  return position;
}

std::uint32_t ArchiveReader::positionOf(const ArchiveFields& fields, std::uint32_t number) const {
  const auto numbers = fields.shape == nullptr
                           ? keyNumbers_.from(fields.firstKey)
                           : std::span<const std::uint32_t>(fields.shape->numbers);
  const auto count = static_cast<std::uint32_t>(fields.dictionary.count);
  for (std::uint32_t i = 0; i < count; ++i) {
    if (numbers[i] == number) return i;
  }
  return ArchiveShape::kAbsent;
}

bool ArchiveReader::readElements(const ArchiveFields& fields, std::string_view key,
                                 std::vector<OVRef<OVObject>>& elements) {
  const auto array = form(fields, key, Kind::array);
  if (!array) return false;
  charge(array->count * sizeof(OVRef<OVObject>));
  elements.reserve(static_cast<std::size_t>(array->count));
  for (std::uint64_t i = 0; i < array->count; ++i) {
    elements.push_back(objectAt(uidOf(plist_.reference(*array, i))));
  }
  return true;
}

void ArchiveReader::readEntries(const ArchiveFields& fields, DictionaryObject& dictionary) {
  const PlistItem keys = form(fields, archive::kDictionaryKeys, Kind::array).value_or(PlistItem());
  const PlistItem values = form(fields, archive::kArrayObjects, Kind::array).value_or(PlistItem());
  if (keys.count != values.count) {
    throw OVInvalidArchive("a dictionary with " + std::to_string(keys.count) + " keys and " +
                           std::to_string(values.count) + " values");
  }
  charge(keys.count * 3 * sizeof(DictionaryObject::Entry));
  // The keys first: they mostly stand together.
  std::vector<DictionaryObject::Entry> read(static_cast<std::size_t>(keys.count));
  std::uint64_t at = 0;
  for (DictionaryObject::Entry& entry : read) entry.key = textOf(plist_.reference(keys, at++));
  at = 0;
  for (DictionaryObject::Entry& entry : read) {
    entry.value = objectAt(uidOf(plist_.reference(values, at++)));
  }
  dictionary.assign(std::move(read));
}

bool ArchiveReader::readList(Item item, std::vector<OVRef<OVObject>>& elements) {
  std::uint64_t uid = 0;
  if (!plist_.isUid(item, uid)) return false;
  checkUid(uid);
  const PlistItem archived = plist_.item(itemAt(uid));
  if (archived.kind != Kind::dictionary) return false;
  // Read where it stands: as an object it may be half filled, and mostly it is never needed as one.
  ArchiveFields fields = openFields(archived);
  fields.hasConstantKeys = true;
  const std::string_view name = classOf(fields).name;
  const bool isList = name == kMutableArrayClass.name || name == kArrayClass.name;
  const bool isRead = isList && readElements(fields, archive::kArrayObjects, elements);
  closeFields(fields);
  return isRead;
}

}  // namespace ov::detail
