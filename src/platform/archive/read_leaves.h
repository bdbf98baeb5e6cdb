#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/plist_reader.h"
#include "platform/object_arena.h"

namespace ov::detail {

/// Makes objects of what is in one place of a property list: texts, numbers, dates and data.
class ReadLeaves {
 public:
  /// Texts are made in the arena.
  ReadLeaves(PlistReader& plist, ObjectArena& arena) : plist_(plist), arena_(arena) {}

  [[nodiscard]] OVString text(const PlistItem& item);
  /// Null for null. Throws `OVInvalidArchive` for a container or a UID.
  [[nodiscard]] OVRef<OVObject> leaf(const PlistItem& item);
  /// The same, where a long one that many objects hold is made once, as our own writer writes it.
  [[nodiscard]] OVRef<OVObject> sharedLeaf(const PlistItem& item);

 private:
  struct Long {
    PlistItem item;
    OVRef<OVObject> object;
  };

  PlistReader& plist_;
  ObjectArena& arena_;
  std::map<const std::byte*, Long> long_;  // not hashed: who makes a block chooses its places
  std::string scratch_;
};

}  // namespace ov::detail
