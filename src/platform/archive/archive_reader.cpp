// The walk that builds objects. An object is made and known by its UID before its fields are read,
// so that rings close; deep graphs are continued from a queue instead of the stack.

#include "platform/archive/archive_reader.h"

#include <string>
#include <utility>

#include "platform/archive/archive_keys.h"
#include "platform/archive/class_table.h"
#include "platform/archive/plain_entries.h"
#include "platform/maker.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

ArchiveReader::ArchiveReader(std::span<const std::byte> block, ClassLookup classes)
    : plist_(block),
      arena_(block.size()),
      objects_(plist_),
      leaves_(plist_, arena_),
      classes_(plist_, objects_, leaves_, classes),
      fields_(plist_, classes_),
      forms_(plist_, objects_, leaves_, fields_, classes != nullptr),
      opaque_(plist_, leaves_, *this) {}

OVRef<OVObject> unarchived(const OVRef<OVData>& data, ClassLookup classes) {
  if (data == nullptr) throw OVInvalidArchive("no data");
  return ArchiveReader(data->bytes(), classes).root();
}

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
  const PlistItem head = plist_.item(plist_.top());
  if (head.kind != Kind::dictionary || !plainEntry(plist_, head, archive::kArchiver)) {
    throw OVInvalidArchive("a property list that is not a keyed archive");
  }
  const PlistItem version = requiredEntry(plist_, head, archive::kVersion, Kind::integer);
  if (plist_.integer(version).value != archive::kVersionNumber) {
    throw OVInvalidArchive("a keyed archive of an unknown version");
  }
  const PlistItem array = requiredEntry(plist_, head, archive::kObjects, Kind::array);
  if (array.count == 0) throw OVInvalidArchive("the archive holds no objects");
  std::string storage;
  if (!plist_.equals(plist_.item(plist_.reference(array, 0)), archive::kNull, storage)) {
    throw OVInvalidArchive("the archive's object 0 is not \"$null\"");
  }
  objects_.open(array);
  OVRef<OVObject> root = readTop(requiredEntry(plist_, head, archive::kTop, Kind::dictionary));
  while (!waiting_.empty()) {
    const Waiting next = std::move(waiting_.back());
    waiting_.pop_back();
    fill(*next.object, fields_.open(plist_.item(next.item)));
  }
  return root;
}

/// The root; where an archive has other entries instead, a dictionary of all of them.
OVRef<OVObject> ArchiveReader::readTop(const PlistItem& top) {
  if (const auto root = plainEntry(plist_, top, archive::kRoot)) {
    if (root->kind != Kind::uid) throw OVInvalidArchive("the archive's root is not a reference");
    return objectAt(objects_.checked(PlistReader::uid(*root)));
  }
  if (top.count == 0) throw OVInvalidArchive("the archive has no root");
  plist_.charge(top.count * 4 * sizeof(DictionaryObject::Entry));
  std::vector<DictionaryObject::Entry> entries(static_cast<std::size_t>(top.count));
  std::uint64_t at = 0;
  for (DictionaryObject::Entry& entry : entries) {
    entry.key = leaves_.text(keyAt(plist_, top, at));
    entry.value = objectOf(plist_.reference(top, top.count + at++));
  }
  const auto dictionary = Maker::make<DictionaryObject>();
  dictionary->assign(std::move(entries));
  return dictionary;
}

OVRef<OVObject> ArchiveReader::objectOf(Item item) {
  const auto uid = objects_.uidAt(item);
  return uid ? objectAt(*uid) : leaves_.leaf(plist_.item(item));
}

OVRef<OVObject> ArchiveReader::objectAt(std::uint64_t uid) {
  if (uid == 0) return nullptr;
  ArchiveSlot& slot = objects_.slot(uid);
  if (!slot.isEmpty()) return slot.object();
  const PlistItem item = objects_.item(uid);
  if (item.kind == Kind::dictionary) return build(uid, item);
  slot.set(leaves_.leaf(item));
  return slot.object();
}

OVString ArchiveReader::textOf(Item item) {
  const auto uid = objects_.uidAt(item);
  if (!uid) return ov::cast<OVString>(leaves_.leaf(plist_.item(item)));
  if (*uid == 0) return nullptr;
  ArchiveSlot& slot = objects_.slot(*uid);
  if (slot.isEmpty()) {
    const PlistItem archived = objects_.item(*uid);
    if (!PlistReader::isText(archived)) return ov::cast<OVString>(objectAt(*uid));
    slot.set(leaves_.text(archived));
  }
  return slot.text();
}

OVRef<OVObject> ArchiveReader::build(std::uint64_t uid, const PlistItem& dictionary) {
  ArchiveFields fields = fields_.open(dictionary);
  const ArchivedClass& record = fields_.classOf(fields);
  if (!record.isHosts) fields.learnKeys();
  OVRef<OVObject> object = makeEmpty(record, fields);
  objects_.slot(uid).set(object);
  if (object == nullptr) {
    // A host's class may decline to make an object.
  } else if (depth_ < kMaxDepth) {
    fill(*object, fields);
  } else {
    waiting_.push_back({object, objects_.itemNumber(uid)});
  }
  return object;
}

/// The object that represents an archived one. Texts and data blocks are complete, all others still
/// empty.
OVRef<OVObject> ArchiveReader::makeEmpty(const ArchivedClass& record, const ArchiveFields& fields) {
  // What one object is taken to need, whatever its class, and for each of its fields.
  constexpr std::uint64_t kMemoryPerObject = 256;
  constexpr std::uint64_t kMemoryPerField = 32;
  plist_.charge(kMemoryPerObject + fields.dictionary.count * kMemoryPerField);
  if (record.known != nullptr) return record.known->make();
  if (auto made = forms_.make(record, fields)) return made;
  plist_.charge((record.classes.size() + record.hints.size()) * sizeof(OVString));
  return Maker::make<OVOpaqueObject>(record.name, record.classes, record.hints);
}

void ArchiveReader::fill(OVObject& object, const ArchiveFields& fields) {
  const Deeper deeper(*this);
  OVKeyedUnarchiver coder(*this, fields);
  object.initWithCoder(coder);
}

bool ArchiveReader::readElements(const ArchiveFields& fields, std::string_view key,
                                 std::vector<OVRef<OVObject>>& elements) {
  const auto array = fields_.find(fields, key, Kind::array);
  if (!array) return false;
  plist_.charge(array->count * sizeof(OVRef<OVObject>));
  elements.reserve(static_cast<std::size_t>(array->count));
  for (std::uint64_t i = 0; i < array->count; ++i) {
    elements.push_back(objectAt(objects_.uidOf(plist_.reference(*array, i))));
  }
  return true;
}

void ArchiveReader::readEntries(const ArchiveFields& fields, DictionaryObject& dictionary) {
  const auto arrayAt = [&](std::string_view key) {
    return fields_.find(fields, key, Kind::array).value_or(PlistItem());
  };
  const PlistItem keys = arrayAt(archive::kDictionaryKeys);
  const PlistItem values = arrayAt(archive::kArrayObjects);
  if (keys.count != values.count) {
    throw OVInvalidArchive("a dictionary with " + std::to_string(keys.count) + " keys and " +
                           std::to_string(values.count) + " values");
  }
  plist_.charge(keys.count * 4 * sizeof(DictionaryObject::Entry));
  // So many bytes of a key are hashed in the time that a byte of memory is worth.
  constexpr std::size_t kHashedPerByte = 8;
  // The keys first: they are mostly together.
  std::vector<DictionaryObject::Entry> read(static_cast<std::size_t>(keys.count));
  std::uint64_t at = 0;
  for (DictionaryObject::Entry& entry : read) {
    entry.key = textOf(plist_.reference(keys, at++));
    plist_.charge(entry.key.size() / kHashedPerByte);
  }
  at = 0;
  for (DictionaryObject::Entry& entry : read) {
    entry.value = objectAt(objects_.uidOf(plist_.reference(values, at++)));
  }
  dictionary.assign(std::move(read));
}

bool ArchiveReader::readList(Item item, std::vector<OVRef<OVObject>>& elements) {
  const auto uid = objects_.uidAt(item);
  if (!uid) return false;
  const PlistItem archived = objects_.item(*uid);
  if (archived.kind != Kind::dictionary) return false;
  // Read in place: as an object it may be half filled, and mostly it is never needed as one.
  ArchiveFields fields = fields_.open(archived);
  fields.learnKeys();
  return FoundationForms::isList(fields_.classOf(fields)) &&
         readElements(fields, archive::kArrayObjects, elements);
}

/// Releases what half-built objects refer to, so that none keeps another alive.
void ArchiveReader::breakRings() noexcept {
  const ArchiveFields none{{Kind::dictionary, 0, nullptr}};
  waiting_.clear();
  for (const ArchiveSlot& slot : objects_.slots()) {
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
