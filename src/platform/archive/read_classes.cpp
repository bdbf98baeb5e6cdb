#include "platform/archive/read_classes.h"

#include <optional>
#include <string>

#include "platform/archive/archive_keys.h"
#include "platform/archive/plain_entries.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

const ArchivedClass& ReadClasses::record(std::uint64_t item) {
  const std::uint64_t uid = objects_.uidOf(item);
  const auto known = records_.find(uid);
  return known == records_.end() ? records_.emplace(uid, read(uid)).first->second : known->second;
}

ArchivedClass ReadClasses::read(std::uint64_t uid) {
  const PlistItem dictionary = objects_.item(uid);
  const auto name = dictionary.kind == Kind::dictionary
                        ? plainEntry(plist_, dictionary, archive::kClassName)
                        : std::nullopt;
  if (!name || !PlistReader::isText(*name)) {
    throw OVInvalidArchive("object " + std::to_string(uid) +
                           " of the archive is used as a class but is not one");
  }
  plist_.charge(sizeof(ArchivedClass) + 64);
  ArchivedClass record;
  record.name = leaves_.text(*name);
  record.form = libraryClass(record.name);
  if (const auto classes = plainEntry(plist_, dictionary, archive::kClasses)) {
    record.classes = texts(*classes);
  }
  if (const auto hints = plainEntry(plist_, dictionary, archive::kClassHints)) {
    record.hints = texts(*hints);
  }
  if (lookUp_ != nullptr) {
    record.known = lookUp_(record.name);
    for (std::size_t i = 0; record.known == nullptr && i < record.hints.size(); ++i) {
      record.known = lookUp_(record.hints[i]);
    }
  }
  record.isHosts = record.known != nullptr && libraryClass(record.known->name) == nullptr;
  return record;
}

std::vector<OVString> ReadClasses::texts(const PlistItem& array) {
  if (array.kind != Kind::array) throw OVInvalidArchive("a class record without a list of names");
  plist_.charge(array.count * sizeof(OVString));
  std::vector<OVString> texts;
  for (std::uint64_t i = 0; i < array.count; ++i) {
    const PlistItem item = plist_.item(plist_.reference(array, i));
    if (!PlistReader::isText(item)) throw OVInvalidArchive("a class name that is not text");
    texts.push_back(leaves_.text(item));
  }
  return texts;
}

}  // namespace ov::detail
