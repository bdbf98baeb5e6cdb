#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

/// Gives each key of the dictionary its number, once, so that look-ups compare numbers.
ArchiveFields ArchiveReader::openFields(const PlistItem& dictionary) {
  const ArchiveFields fields{dictionary, keyNumbers_.size()};
  charge(dictionary.count * sizeof(std::uint32_t));
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    keyNumbers_.push_back(numberOfKey(plist_.reference(dictionary, i)));
  }
  return fields;
}

std::uint32_t ArchiveReader::numberOfKey(std::uint64_t object) {
  RecentKey& recent = recentKeys_[static_cast<std::size_t>(object % recentKeys_.size())];
  if (recent.object == object) return recent.number;
  const PlistItem item = key(object);
  charge(item.count);
  const std::string_view text = plist_.text(item, scratch_);
  std::uint32_t number = keys_.find(text);
  if (number == KeyNumbers::kNone) {
    charge(text.size() + 128);
    number = static_cast<std::uint32_t>(keys_.size());
    keys_.add(text, number);
  }
  recent = {object, number};
  return number;
}

std::optional<PlistItem> ArchiveReader::find(const ArchiveFields& fields, std::string_view key) {
  const std::uint32_t wanted = key.starts_with(archive::kReserved)
                                   ? keys_.find(archive::kReserved + std::string(key))
                                   : keys_.find(key);
  if (wanted == KeyNumbers::kNone) return std::nullopt;
  for (std::uint64_t i = 0; i < fields.dictionary.count; ++i) {
    if (keyNumbers_[fields.firstKey + static_cast<std::size_t>(i)] == wanted) {
      return plist_.item(plist_.reference(fields.dictionary, fields.dictionary.count + i));
    }
  }
  return std::nullopt;
}

bool ArchiveReader::readElements(const ArchiveFields& fields, std::string_view key,
                                 std::vector<OVRef<OVObject>>& elements) {
  const auto array = find(fields, key);
  if (!array || array->kind != Kind::array) return false;
  charge(array->count * sizeof(OVRef<OVObject>));
  elements.reserve(static_cast<std::size_t>(array->count));
  for (std::uint64_t i = 0; i < array->count; ++i) {
    elements.push_back(objectAt(uidOf(plist_.item(plist_.reference(*array, i)))));
  }
  return true;
}

void ArchiveReader::readTexts(const ArchiveFields& fields, std::string_view key,
                              std::vector<OVString>& texts) {
  const auto array = find(fields, key);
  if (!array || array->kind != Kind::array) return;
  charge(array->count * 2 * sizeof(DictionaryEntries::Entry));
  texts.reserve(static_cast<std::size_t>(array->count));
  for (std::uint64_t i = 0; i < array->count; ++i) {
    texts.push_back(textOf(plist_.item(plist_.reference(*array, i))));
  }
}

bool ArchiveReader::readList(const ArchiveFields& fields, std::string_view key,
                             std::vector<OVRef<OVObject>>& elements) {
  const auto value = find(fields, key);
  if (!value) return false;
  const auto list = std::dynamic_pointer_cast<AnyList>(objectOf(*value));
  if (list == nullptr) return false;
  charge(list->size() * sizeof(OVRef<OVObject>));
  elements = list->elements()->items;
  return true;
}

}  // namespace ov::detail
