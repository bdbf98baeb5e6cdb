#include "platform/archive/plain_entries.h"

namespace ov::detail {

PlistItem keyAt(const PlistReader& plist, std::uint64_t object) {
  const PlistItem key = plist.item(object);
  if (!PlistReader::isText(key)) throw OVInvalidArchive("a dictionary key that is not text");
  return key;
}

std::optional<PlistItem> PlainEntries::find(const PlistItem& dictionary, std::string_view key) {
  budget_.charge(dictionary.count);
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    if (plist_.equals(keyAt(plist_, plist_.reference(dictionary, i)), key)) {
      return plist_.item(plist_.reference(dictionary, dictionary.count + i));
    }
  }
  return std::nullopt;
}

PlistItem PlainEntries::required(const PlistItem& dictionary, std::string_view key,
                                 PlistItem::Kind kind) {
  const auto found = find(dictionary, key);
  if (!found || found->kind != kind) {
    throw OVInvalidArchive("the archive's " + std::string(key) +
                           (found ? " is of the wrong kind" : " is missing"));
  }
  return *found;
}

}  // namespace ov::detail
