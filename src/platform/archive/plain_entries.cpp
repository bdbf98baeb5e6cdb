#include "platform/archive/plain_entries.h"

#include <string>

namespace ov::detail {

PlistItem keyAt(const PlistReader& plist, const PlistItem& dictionary, std::uint64_t position) {
  const PlistItem key = plist.item(plist.reference(dictionary, position));
  if (!PlistReader::isText(key)) throw OVInvalidArchive("a dictionary key that is not text");
  return key;
}

std::optional<std::uint64_t> positionOf(PlistReader& plist, const PlistItem& dictionary,
                                        std::string_view key) {
  plist.charge(dictionary.count);
  std::string storage;
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    if (plist.equals(keyAt(plist, dictionary, i), key, storage)) return i;
  }
  return std::nullopt;
}

std::optional<PlistItem> plainEntry(PlistReader& plist, const PlistItem& dictionary,
                                    std::string_view key) {
  const auto position = positionOf(plist, dictionary, key);
  if (!position) return std::nullopt;
  return plist.item(plist.reference(dictionary, dictionary.count + *position));
}

PlistItem requiredEntry(PlistReader& plist, const PlistItem& dictionary, std::string_view key,
                        PlistItem::Kind kind) {
  const auto found = plainEntry(plist, dictionary, key);
  if (!found || found->kind != kind) {
    throw OVInvalidArchive("the archive's " + std::string(key) +
                           (found ? " is of the wrong kind" : " is missing"));
  }
  return *found;
}

}  // namespace ov::detail
