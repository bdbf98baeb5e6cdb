#include "platform/archive/archive_reader.h"

#include <utility>

#include "platform/archive/archive_keys.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

namespace {

/// A block may ask for this much memory for each of its bytes, and a little more. Our own blocks
/// ask for about a tenth of it. Looking through keys counts as well, so that time is bounded where
/// objects of a hostile block overlap.
constexpr std::uint64_t kMemoryPerByte = 40;
constexpr std::uint64_t kMemoryForFree = 1 << 18;

}  // namespace

ArchiveReader::ArchiveReader(std::span<const std::byte> block, Known known)
    : plist_(block), known_(known), budget_(block.size() * kMemoryPerByte + kMemoryForFree) {}

OVRef<OVObject> ArchiveReader::root() {
  try {
    return readRoot();
  } catch (...) {
    breakRings();
    throw;
  }
}

OVRef<OVObject> ArchiveReader::readRoot() {
  const PlistItem top = plist_.item(plist_.top());
  if (top.kind != Kind::dictionary || !entry(top, archive::kArchiver)) {
    throw OVInvalidArchive("a property list that is no keyed archive");
  }
  const PlistItem version = requiredEntry(top, archive::kVersion, Kind::integer);
  if (plist_.integer(version).value != archive::kVersionNumber) {
    throw OVInvalidArchive("a keyed archive of an unknown version");
  }
  objects_ = requiredEntry(top, archive::kObjects, Kind::array);
  const PlistItem null = archived(0);
  if (!PlistReader::isText(null) || plist_.text(null, scratch_) != archive::kNull) {
    throw OVInvalidArchive("the archive's object 0 is not \"$null\"");
  }
  charge(objects_.count * sizeof(Slot));
  slots_.resize(static_cast<std::size_t>(objects_.count));
  OVRef<OVObject> root = readTop(requiredEntry(top, archive::kTop, Kind::dictionary));
  fillWaiting();
  return root;
}

/// The root; where an archive has other entries instead, a dictionary of all of them.
OVRef<OVObject> ArchiveReader::readTop(const PlistItem& top) {
  if (const auto root = entry(top, archive::kRoot)) {
    if (root->kind != Kind::uid) throw OVInvalidArchive("the archive's root is no reference");
    return objectOf(*root);
  }
  if (top.count == 0) throw OVInvalidArchive("the archive has no root");
  const auto entries = OVDictionary<OVObject>::dictionary();
  for (std::uint64_t i = 0; i < top.count; ++i) {
    const OVString key(keyText(top, i));
    const PlistItem value = plist_.item(plist_.reference(top, top.count + i));
    if (!entries->contains(key)) entries->entries()->setAny(key, objectOf(value));
  }
  return entries;
}

PlistItem ArchiveReader::key(std::uint64_t object) {
  const PlistItem key = plist_.item(object);
  if (!PlistReader::isText(key)) throw OVInvalidArchive("a dictionary key that is no text");
  return key;
}

std::string_view ArchiveReader::keyText(const PlistItem& dictionary, std::uint64_t position) {
  const PlistItem text = key(plist_.reference(dictionary, position));
  charge(text.count);
  return plist_.text(text, scratch_);
}

std::optional<PlistItem> ArchiveReader::entry(const PlistItem& dictionary, std::string_view key) {
  charge(dictionary.count);
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    if (plist_.equals(this->key(plist_.reference(dictionary, i)), key)) {
      return plist_.item(plist_.reference(dictionary, dictionary.count + i));
    }
  }
  return std::nullopt;
}

PlistItem ArchiveReader::requiredEntry(const PlistItem& dictionary, std::string_view key,
                                       Kind kind) {
  const auto found = entry(dictionary, key);
  if (!found || found->kind != kind) {
    throw OVInvalidArchive("the archive's " + std::string(key) +
                           (found ? " is of the wrong kind" : " is missing"));
  }
  return *found;
}

std::uint64_t ArchiveReader::uidOf(const PlistItem& value) {
  if (value.kind != Kind::uid) throw OVInvalidArchive("a reference that is no UID");
  const std::uint64_t uid = plist_.uid(value);
  if (uid >= objects_.count) {
    throw OVInvalidArchive("UID " + std::to_string(uid) + " is past the last of " +
                           std::to_string(objects_.count) + " objects");
  }
  return uid;
}

PlistItem ArchiveReader::archived(std::uint64_t uid) {
  if (uid >= objects_.count) throw OVInvalidArchive("the archive holds no objects");
  return plist_.item(plist_.reference(objects_, uid));
}

OVRef<OVObject> ArchiveReader::objectOf(const PlistItem& value) {
  return value.kind == Kind::uid ? objectAt(uidOf(value)) : leaf(value);
}

OVRef<OVObject> ArchiveReader::objectAt(std::uint64_t uid) {
  if (uid == 0) return nullptr;
  Slot& slot = slots_[static_cast<std::size_t>(uid)];
  if (slot.object != nullptr) return slot.object;
  if (!slot.text.isNull()) return slot.object = slot.text;
  const PlistItem item = archived(uid);
  if (item.kind == Kind::dictionary) return build(uid, item);
  slot.object = leaf(item);
  return slot.object;
}

OVString ArchiveReader::textOf(const PlistItem& value) {
  if (value.kind != Kind::uid) return ov::cast<OVString>(leaf(value));
  const std::uint64_t uid = uidOf(value);
  if (uid == 0) return nullptr;
  Slot& slot = slots_[static_cast<std::size_t>(uid)];
  if (!slot.text.isNull()) return slot.text;
  const PlistItem item = archived(uid);
  if (!PlistReader::isText(item)) {
    slot.text = ov::cast<OVString>(objectAt(uid));
  } else if (slot.object != nullptr) {
    slot.text = ov::cast<OVString>(slot.object);
  } else {
    charge(item.count * 2 + 64);
    slot.text = plist_.text(item, scratch_);
  }
  return slot.text;
}

/// An object that is all in one place: a text, number, date or data block.
OVRef<OVObject> ArchiveReader::leaf(const PlistItem& item) {
  charge(item.count * 2 + 96);
  switch (item.kind) {
    case Kind::null:
      return nullptr;
    case Kind::ascii:
    case Kind::utf16:
      return OVString(plist_.text(item, scratch_));
    case Kind::boolean:
      return OVNumber::numberWithBool(plist_.boolean(item));
    case Kind::integer: {
      const auto [value, isUnsigned] = plist_.integer(item);
      return isUnsigned ? OVNumber::numberWithUnsigned(static_cast<std::uint64_t>(value))
                        : OVNumber::numberWithInteger(value);
    }
    case Kind::real:
      return OVNumber::numberWithDouble(plist_.real(item));
    case Kind::date:
      return OVDate::dateWithTimeIntervalSinceReferenceDate(plist_.real(item));
    case Kind::data:
      return OVData::dataWithBytes(plist_.data(item));
    default:
      throw OVInvalidArchive("an object of the archive is a container without a class");
  }
}

OVRef<OVObject> ArchiveReader::build(std::uint64_t uid, const PlistItem& dictionary) {
  const auto classEntry = entry(dictionary, archive::kClass);
  if (!classEntry) {
    throw OVInvalidArchive("object " + std::to_string(uid) + " of the archive has no class");
  }
  const ClassRecord& record = classRecord(uidOf(*classEntry));
  OVRef<OVObject> object = makeEmpty(record, dictionary);
  slots_[static_cast<std::size_t>(uid)].object = object;
  if (object == nullptr || object->classForCoder() == &kTextClass ||
      object->classForCoder() == &kDataClass) {
    return object;
  }
  if (depth_ >= kDeepest) {
    waiting_.push_back({object, dictionary});
  } else {
    fill(*object, dictionary);
  }
  return object;
}

void ArchiveReader::fillWaiting() {
  while (!waiting_.empty()) {
    const Waiting next = std::move(waiting_.back());
    waiting_.pop_back();
    fill(*next.object, next.dictionary);
  }
}

void ArchiveReader::fill(OVObject& object, const PlistItem& dictionary) {
  const Deeper deeper(depth_);
  if (object.classForCoder() == &kOpaqueClass) {
    fillOpaque(static_cast<OVOpaqueObject&>(object), dictionary);
  } else {
    const ArchiveFields fields = openFields(dictionary);
    OVKeyedUnarchiver coder(*this, fields);
    object.initWithCoder(coder);
    closeFields(fields);
  }
}

void ArchiveReader::charge(std::uint64_t bytes) {
  if (bytes > budget_) {
    throw OVInvalidArchive("the block would take far more memory than its size allows");
  }
  budget_ -= bytes;
}

/// Lets go of what half-built objects refer to, so that none keeps another alive.
void ArchiveReader::breakRings() noexcept {
  const ArchiveFields none{{Kind::dictionary, 0, nullptr}, keyNumbers_.size()};
  waiting_.clear();
  for (const Slot& slot : slots_) {
    if (slot.object == nullptr) continue;
    const OVClass* objectClass = slot.object->classForCoder();
    if (objectClass == &kOpaqueClass) {
      std::exchange(static_cast<OVOpaqueObject&>(*slot.object).fields_, {});
    } else if (objectClass != nullptr && isLibraryClass(*objectClass)) {
      try {
        OVKeyedUnarchiver coder(*this, none);
        slot.object->initWithCoder(coder);
      } catch (...) {  // an object that cannot be emptied keeps what it has
      }
    }
  }
}

}  // namespace ov::detail
