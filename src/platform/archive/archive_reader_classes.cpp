#include <utility>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"
#include "platform/maker.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

namespace {

bool isTextClass(std::string_view name) {
  return name == kTextClass.name || name == "NSMutableString";
}

}  // namespace

const ArchiveReader::ClassRecord& ArchiveReader::classRecord(std::uint64_t uid) {
  if (const auto at = classRecords_.find(uid); at != classRecords_.end()) return at->second;
  const PlistItem dictionary = archived(uid);
  const auto name =
      dictionary.kind == Kind::dictionary ? entry(dictionary, archive::kClassName) : std::nullopt;
  if (!name || !PlistReader::isText(*name)) {
    throw OVInvalidArchive("object " + std::to_string(uid) +
                           " of the archive is used as a class and is none");
  }
  charge(sizeof(ClassRecord) + 64 + 2 * name->count);
  ClassRecord record;
  record.name = plist_.text(*name, scratch_);
  if (const auto classes = entry(dictionary, archive::kClasses)) {
    record.classes = textArray(*classes);
  }
  if (const auto hints = entry(dictionary, archive::kClassHints)) {
    record.hints = textArray(*hints);
  }
  if (known_ == Known::registeredClasses) record.known = registeredClass(record.name);
  return classRecords_.emplace(uid, std::move(record)).first->second;
}

std::vector<OVString> ArchiveReader::textArray(const PlistItem& array) {
  if (array.kind != Kind::array) throw OVInvalidArchive("a class record without a list of names");
  charge(array.count * sizeof(OVString));
  std::vector<OVString> texts;
  for (std::uint64_t i = 0; i < array.count; ++i) {
    const PlistItem item = plist_.item(plist_.reference(array, i));
    if (!PlistReader::isText(item)) throw OVInvalidArchive("a class name that is no text");
    charge(2 * item.count + 64);
    texts.emplace_back(plist_.text(item, scratch_));
  }
  return texts;
}

/// The object that stands for an archived one: a text, a collection, one of a registered class, or
/// else an opaque object. Texts and data blocks are complete, all others still empty.
OVRef<OVObject> ArchiveReader::makeEmpty(const ClassRecord& record, const PlistItem& dictionary) {
  charge(kMemoryPerObject);
  if (record.known != nullptr) return record.known->make();
  const std::string_view name = record.name;
  const auto field = [&](std::string_view key, auto accepts) -> std::optional<PlistItem> {
    const auto found = entry(dictionary, key);
    return found && accepts(*found) ? found : std::nullopt;
  };
  const auto isArray = [](const PlistItem& item) { return item.kind == Kind::array; };
  const auto isData = [](const PlistItem& item) { return item.kind == Kind::data; };

  if (isTextClass(name)) {
    if (const auto text = field(archive::kStringText, PlistReader::isText)) return leaf(*text);
  } else if (name == "NSData" || name == "NSMutableData") {
    if (const auto data = field(archive::kDataBytes, isData)) return leaf(*data);
  } else if (name == kMutableArrayClass.name || name == kArrayClass.name) {
    if (field(archive::kArrayObjects, isArray)) {
      return name == kArrayClass.name ? OVList<OVObject>::immutableList()
                                      : OVList<OVObject>::list();
    }
  } else if (name == kMutableDictionaryClass.name || name == kDictionaryClass.name) {
    const auto keys = field(archive::kDictionaryKeys, isArray);
    if (keys && field(archive::kArrayObjects, isArray) && areTexts(*keys)) {
      auto made = OVDictionary<OVObject>::dictionary();
      made->entries()->immutable = name == kDictionaryClass.name;
      return made;
    }
  } else if (name == kDateClass.name) {
    return kDateClass.make();
  }
  return makeOpaque(record);
}

/// True when every element refers to a text.
bool ArchiveReader::areTexts(const PlistItem& array) {
  charge(array.count);
  for (std::uint64_t i = 0; i < array.count; ++i) {
    if (!isText(uidOf(plist_.item(plist_.reference(array, i))))) return false;
  }
  return true;
}

/// Whether a text stands there, directly or as an object. Builds nothing, so that keys which are
/// dictionaries with keys of their own lead no deeper.
bool ArchiveReader::isText(std::uint64_t uid) {
  const PlistItem item = archived(uid);
  if (item.kind != Kind::dictionary) return uid != 0 && PlistReader::isText(item);
  const auto classEntry = entry(item, archive::kClass);
  const auto text = entry(item, archive::kStringText);
  return classEntry && text && PlistReader::isText(*text) &&
         isTextClass(classRecord(uidOf(*classEntry)).name);
}

OVRef<OVObject> ArchiveReader::makeOpaque(const ClassRecord& record) {
  auto object = Maker::make<OVOpaqueObject>();
  object->className_ = record.name;
  object->classes_ = record.classes;
  object->classHints_ = record.hints;
  charge((record.classes.size() + record.hints.size()) * sizeof(OVString));
  return object;
}

void ArchiveReader::fillOpaque(OVOpaqueObject& object, const PlistItem& dictionary) {
  std::vector<OVOpaqueField> fields = opaqueFields(dictionary, 0);
  std::erase_if(fields, [](const OVOpaqueField& field) { return field.key == archive::kClass; });
  object.fields_ = std::move(fields);
}

std::vector<OVOpaqueField> ArchiveReader::opaqueFields(const PlistItem& dictionary,
                                                       unsigned depth) {
  charge(dictionary.count * sizeof(OVOpaqueField));
  std::vector<OVOpaqueField> fields;
  fields.reserve(static_cast<std::size_t>(dictionary.count));
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    const std::string_view text = keyText(dictionary, i);
    charge(2 * text.size() + 64);
    const OVString key(text);
    const PlistItem value = plist_.item(plist_.reference(dictionary, dictionary.count + i));
    fields.push_back(
        {key, key == archive::kClass && depth == 0 ? OVOpaqueValue() : opaqueValue(value, depth)});
  }
  return fields;
}

OVOpaqueValue ArchiveReader::opaqueValue(const PlistItem& value, unsigned depth) {
  if (depth >= kDeepest) throw OVInvalidArchive("containers inside each other without end");
  const Deeper deeper(depth_);
  switch (value.kind) {
    case Kind::uid:
      return {OVOpaqueValue::Reference{objectAt(uidOf(value))}};
    case Kind::array:
      return {opaqueArray(value, depth + 1)};
    case Kind::set:
      return {OVOpaqueValue::Set{opaqueArray(value, depth + 1)}};
    case Kind::dictionary:
      return {opaqueFields(value, depth + 1)};
    default:
      return {OVOpaqueValue::Inline{leaf(value)}};
  }
}

OVOpaqueValue::Array ArchiveReader::opaqueArray(const PlistItem& container, unsigned depth) {
  charge(container.count * sizeof(OVOpaqueValue));
  OVOpaqueValue::Array values;
  values.reserve(static_cast<std::size_t>(container.count));
  for (std::uint64_t i = 0; i < container.count; ++i) {
    values.push_back(opaqueValue(plist_.item(plist_.reference(container, i)), depth));
  }
  return values;
}

}  // namespace ov::detail
