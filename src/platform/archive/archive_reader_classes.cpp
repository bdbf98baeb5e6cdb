#include <utility>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"
#include "platform/maker.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

namespace {

/// What one object is taken to need, whatever its class, and for each of its fields.
constexpr std::uint64_t kMemoryPerObject = 256;
constexpr std::uint64_t kMemoryPerField = 32;

bool isTextClass(std::string_view name) {
  return name == kTextClass.name || name == "NSMutableString";
}

}  // namespace

const ArchivedClass& ArchiveReader::classOf(const ArchiveFields& fields) {
  ArchiveShape* shape = fields.shape;
  const auto item =
      valueAt(fields, shape == nullptr ? positionOf(fields, classKey_) : shape->classPosition);
  if (!item) throw OVInvalidArchive("an object of the archive has no class");
  if (shape == nullptr) return classRecord(uidOf(*item));
  if (shape->objectClass == nullptr || shape->classItem != *item) {
    shape->objectClass = &classRecord(uidOf(*item));
    shape->classItem = *item;
  }
  return *shape->objectClass;
}

const ArchivedClass& ArchiveReader::newClassRecord(std::uint64_t uid) {
  auto at = classRecords_.find(uid);
  if (at == classRecords_.end()) at = classRecords_.emplace(uid, readClassRecord(uid)).first;
  recentClasses_[static_cast<std::size_t>(uid % recentClasses_.size())] = {uid, &at->second};
  return at->second;
}

ArchivedClass ArchiveReader::readClassRecord(std::uint64_t uid) {
  const PlistItem dictionary = plist_.item(itemAt(uid));
  const auto name =
      dictionary.kind == Kind::dictionary ? entry(dictionary, archive::kClassName) : std::nullopt;
  if (!name || !PlistReader::isText(*name)) {
    throw OVInvalidArchive("object " + std::to_string(uid) +
                           " of the archive is used as a class and is none");
  }
  charge(sizeof(ArchivedClass) + 64);
  ArchivedClass record;
  record.name = newText(*name);
  if (const auto classes = entry(dictionary, archive::kClasses)) {
    record.classes = textArray(*classes);
  }
  if (const auto hints = entry(dictionary, archive::kClassHints)) {
    record.hints = textArray(*hints);
  }
  if (known_ == Known::registeredClasses) {
    record.known = registeredClass(record.name);
    for (std::size_t i = 0; record.known == nullptr && i < record.hints.size(); ++i) {
      record.known = registeredClass(record.hints[i]);
    }
  }
  record.isHosts = record.known != nullptr && !isLibraryClass(*record.known);
  return record;
}

std::vector<OVString> ArchiveReader::textArray(const PlistItem& array) {
  if (array.kind != Kind::array) throw OVInvalidArchive("a class record without a list of names");
  charge(array.count * sizeof(OVString));
  std::vector<OVString> texts;
  for (std::uint64_t i = 0; i < array.count; ++i) {
    const PlistItem item = plist_.item(plist_.reference(array, i));
    if (!PlistReader::isText(item)) throw OVInvalidArchive("a class name that is no text");
    texts.push_back(newText(item));
  }
  return texts;
}

/// The object that stands for an archived one: of a registered class, a text, a collection, or else
/// an opaque object. Texts and data blocks are complete, all others still empty.
OVRef<OVObject> ArchiveReader::makeEmpty(const ArchivedClass& record, const ArchiveFields& fields) {
  charge(kMemoryPerObject + fields.dictionary.count * kMemoryPerField);
  if (record.known != nullptr) return record.known->make();
  const std::string_view name = record.name;
  if (name == kDateClass.name) return kDateClass.make();
  if (auto made = makeLeaf(name, fields)) return made;
  if (auto made = makeCollection(name, fields)) return made;
  return makeOpaque(record);
}

/// The field's item, when it is of the kind that the archive's own classes have there.
std::optional<PlistItem> ArchiveReader::form(const ArchiveFields& fields, std::string_view key,
                                             Kind kind) {
  const auto item = find(fields, key);
  if (!item) return std::nullopt;
  const PlistItem found = plist_.item(*item);
  const bool isWanted = kind == Kind::ascii ? PlistReader::isText(found) : found.kind == kind;
  return isWanted ? std::optional(found) : std::nullopt;
}

OVRef<OVObject> ArchiveReader::makeLeaf(std::string_view className, const ArchiveFields& fields) {
  std::optional<PlistItem> found;
  if (isTextClass(className)) {
    found = form(fields, archive::kStringText, Kind::ascii);
  } else if (className == "NSData" || className == "NSMutableData") {
    found = form(fields, archive::kDataBytes, Kind::data);
  }
  return found ? leaf(*found) : nullptr;
}

OVRef<OVObject> ArchiveReader::makeCollection(std::string_view className,
                                              const ArchiveFields& fields) {
  const bool isArray = className == kArrayClass.name;
  const bool isDictionary = className == kDictionaryClass.name;
  if (isArray || className == kMutableArrayClass.name) {
    if (!form(fields, archive::kArrayObjects, Kind::array)) return nullptr;
    return Maker::restore<ListObject>(isArray);
  }
  if (isDictionary || className == kMutableDictionaryClass.name) {
    const auto keys = form(fields, archive::kDictionaryKeys, Kind::array);
    if (!keys || !form(fields, archive::kArrayObjects, Kind::array) || !areTexts(*keys)) {
      return nullptr;
    }
    return Maker::restore<DictionaryObject>(isDictionary);
  }
  return nullptr;
}

/// True when every element refers to a text.
bool ArchiveReader::areTexts(const PlistItem& array) {
  charge(array.count);
  for (std::uint64_t i = 0; i < array.count; ++i) {
    if (!isText(uidOf(plist_.reference(array, i)))) return false;
  }
  return true;
}

/// Whether a text stands there, directly or as an object. Builds nothing, so that keys which are
/// dictionaries with keys of their own lead no deeper.
bool ArchiveReader::isText(std::uint64_t uid) {
  const PlistItem item = plist_.item(itemAt(uid));
  if (item.kind != Kind::dictionary) return uid != 0 && PlistReader::isText(item);
  ArchiveFields fields = openFields(item);
  fields.hasConstantKeys = true;
  const bool isText = isTextClass(classOf(fields).name) &&
                      form(fields, archive::kStringText, Kind::ascii).has_value();
  closeFields(fields);
  return isText;
}

OVRef<OVObject> ArchiveReader::makeOpaque(const ArchivedClass& record) {
  auto object = Maker::make<OVOpaqueObject>();
  object->className_ = record.name;
  object->classes_ = record.classes;
  object->classHints_ = record.hints;
  charge((record.classes.size() + record.hints.size()) * sizeof(OVString));
  return object;
}

}  // namespace ov::detail
