#include "platform/archive/archive_reader.h"

#include <string>
#include <utility>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/number.h>

#include "platform/archive/archive_keys.h"
#include "platform/arena_text.h"
#include "platform/maker.h"

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
    : plist_(block),
      arena_(block.size()),
      known_(known),
      budget_(block.size() * kMemoryPerByte + kMemoryForFree),
      classKey_(keys_.add(archive::kClass)) {}

OVRef<OVObject> ArchiveReader::root() {
  const ObjectArena::Use use(&arena_);
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
  if (objects_.count == 0) throw OVInvalidArchive("the archive holds no objects");
  const PlistItem null = plist_.item(itemAt(0));
  if (!PlistReader::isText(null) || plist_.text(null, scratch_) != archive::kNull) {
    throw OVInvalidArchive("the archive's object 0 is not \"$null\"");
  }
  charge(objects_.count * sizeof(ArchiveSlot));
  slots_.reserve(static_cast<std::size_t>(objects_.count));
  OVRef<OVObject> root = readTop(requiredEntry(top, archive::kTop, Kind::dictionary));
  fillWaiting();
  return root;
}

/// The root; where an archive has other entries instead, a dictionary of all of them.
OVRef<OVObject> ArchiveReader::readTop(const PlistItem& top) {
  if (const auto root = entry(top, archive::kRoot)) {
    if (root->kind != Kind::uid) throw OVInvalidArchive("the archive's root is no reference");
    checkUid(PlistReader::uid(*root));
    return objectAt(PlistReader::uid(*root));
  }
  if (top.count == 0) throw OVInvalidArchive("the archive has no root");
  const auto entries = Maker::make<DictionaryObject>();
  for (std::uint64_t i = 0; i < top.count; ++i) {
    const OVString key(keyText(top, i));
    const Item value = plist_.reference(top, top.count + i);
    entries->add(key, objectOf(value));
  }
  return entries;
}

PlistItem ArchiveReader::key(Item item) const {
  const PlistItem key = plist_.item(item);
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

void ArchiveReader::checkUid(std::uint64_t uid) const {
  if (uid >= objects_.count) {
    throw OVInvalidArchive("UID " + std::to_string(uid) + " is past the last of " +
                           std::to_string(objects_.count) + " objects");
  }
}

std::uint64_t ArchiveReader::uidOf(Item item) const {
  std::uint64_t uid = 0;
  if (!plist_.isUid(item, uid)) throw OVInvalidArchive("a reference that is no UID");
  checkUid(uid);
  return uid;
}

OVRef<OVObject> ArchiveReader::objectOf(Item item) {
  std::uint64_t uid = 0;
  if (!plist_.isUid(item, uid)) return leaf(plist_.item(item));
  checkUid(uid);
  return objectAt(uid);
}

OVRef<OVObject> ArchiveReader::objectAt(std::uint64_t uid) {
  if (uid == 0) return nullptr;
  ArchiveSlot& slot = slotAt(uid);
  if (!slot.isEmpty()) return slot.object();
  const PlistItem item = plist_.item(itemAt(uid));
  if (item.kind == Kind::dictionary) return build(uid, item);
  slot.set(leaf(item));
  return slot.object();
}

OVString ArchiveReader::textOf(Item item) {
  std::uint64_t uid = 0;
  if (!plist_.isUid(item, uid)) return ov::cast<OVString>(leaf(plist_.item(item)));
  checkUid(uid);
  if (uid == 0) return nullptr;
  ArchiveSlot& slot = slotAt(uid);
  if (slot.isEmpty()) {
    const PlistItem archived = plist_.item(itemAt(uid));
    if (!PlistReader::isText(archived)) return ov::cast<OVString>(objectAt(uid));
    slot.set(newText(archived));
  }
  return slot.text();
}

OVString ArchiveReader::newText(const PlistItem& item) {
  charge(item.count * 3 + 64);  // a UTF-16 unit takes up to three bytes
  const std::string_view text = plist_.text(item, scratch_);
  return OVString(ArenaText::fits(text) ? ArenaText::make(arena_, text)
                                        : TextObject::make({&text, 1}));
}

/// An object that is all in one place: a text, number, date or data block.
OVRef<OVObject> ArchiveReader::leaf(const PlistItem& item) {
  charge(item.count * 2 + 96);
  switch (item.kind) {
    case Kind::null:
      return nullptr;
    case Kind::ascii:
    case Kind::utf16:
      return newText(item);
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
  ArchiveFields fields = openFields(dictionary);
  const ArchivedClass& record = classOf(fields);
  fields.hasConstantKeys = !record.isHosts;
  OVRef<OVObject> object = makeEmpty(record, fields);
  slotAt(uid).set(object);
  if (object == nullptr) {
    // A host's class may decline to make an object.
  } else if (depth_ < kDeepest) {
    fill(*object, fields);
  } else {
    waiting_.push_back({object, itemAt(uid)});
  }
  closeFields(fields);
  return object;
}

void ArchiveReader::fillWaiting() {
  while (!waiting_.empty()) {
    const Waiting next = std::move(waiting_.back());
    waiting_.pop_back();
    const ArchiveFields fields = openFields(plist_.item(next.item));
    fill(*next.object, fields);
    closeFields(fields);
  }
}

void ArchiveReader::fill(OVObject& object, const ArchiveFields& fields) {
  const Deeper deeper(depth_);
  OVKeyedUnarchiver coder(*this, fields);
  object.initWithCoder(coder);
}

/// Lets go of what half-built objects refer to, so that none keeps another alive.
void ArchiveReader::breakRings() noexcept {
  const ArchiveFields none{{Kind::dictionary, 0, nullptr}};
  waiting_.clear();
  for (const ArchiveSlot& slot : slots_) {
    OVObject* const object = slot.peek();
    const OVClass* objectClass = object == nullptr ? nullptr : object->classForCoder();
    if (objectClass != nullptr && isLibraryClass(*objectClass)) {
      try {
        OVKeyedUnarchiver coder(*this, none);
        object->initWithCoder(coder);
      } catch (...) {  // an object that cannot be emptied keeps what it has
      }
    }
  }
}

}  // namespace ov::detail
