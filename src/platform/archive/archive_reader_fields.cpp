#include <OVAddressBookSDK/dictionary.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

/// Gives each key of the dictionary its number, once, so that look-ups compare numbers.
ArchiveFields ArchiveReader::openFields(const PlistItem& dictionary) {
  const ArchiveFields fields{dictionary, keyNumbers_.size(), false};
  charge(dictionary.count * 3 * sizeof(std::uint32_t));  // the numbers' memory grows ahead
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

std::optional<ArchiveReader::Item> ArchiveReader::find(const ArchiveFields& fields,
                                                       std::string_view key) {
  std::uint32_t wanted = 0;
  if (key.starts_with(archive::kReserved)) {
    wanted = keys_.find(archive::kReserved + std::string(key));
  } else {
    wanted = fields.hasConstantKeys ? keys_.findConstant(key) : keys_.find(key);
  }
  return wanted == KeyNumbers::kNone ? std::nullopt : findNumber(fields, wanted);
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

bool ArchiveReader::readTexts(const ArchiveFields& fields, std::string_view key,
                              std::vector<OVString>& texts) {
  const auto array = form(fields, key, Kind::array);
  if (!array) return false;
  charge(array->count * 2 * sizeof(DictionaryEntries::Entry));
  texts.reserve(static_cast<std::size_t>(array->count));
  for (std::uint64_t i = 0; i < array->count; ++i) {
    texts.push_back(textOf(plist_.reference(*array, i)));
  }
  return true;
}

bool ArchiveReader::readList(Item item, std::vector<OVRef<OVObject>>& elements) {
  std::uint64_t uid = 0;
  if (!plist_.isUid(item, uid)) return false;
  checkUid(uid);
  const PlistItem archived = plist_.item(itemAt(uid));
  if (archived.kind != Kind::dictionary) return false;
  // Read where it stands: as an object it may be half filled, and mostly it is never needed as one.
  const ArchiveFields fields = openFields(archived);
  const std::string_view name = classOf(fields).name;
  const bool isList = name == kMutableArrayClass.name || name == kArrayClass.name;
  const bool isRead = isList && readElements(fields, archive::kArrayObjects, elements);
  closeFields(fields);
  return isRead;
}

}  // namespace ov::detail
