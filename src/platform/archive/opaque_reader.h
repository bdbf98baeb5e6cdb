#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/opaque_object.h>

#include "platform/archive/plist_reader.h"
#include "platform/archive/read_leaves.h"

namespace ov::detail {

class ArchiveReader;

/// Reads what is in an object whose class nobody knows.
class OpaqueReader {
 public:
  /// The objects that it refers to come from `objects`.
  OpaqueReader(PlistReader& plist, ReadLeaves& leaves, ArchiveReader& objects)
      : plist_(plist), leaves_(leaves), objects_(objects) {}

  /// All but the class, in their order. `depth`: of the plain container that the dictionary is.
  [[nodiscard]] std::vector<OVOpaqueField> fields(const PlistItem& dictionary, unsigned depth = 0);

 private:
  OVOpaqueValue value(std::uint64_t item, unsigned depth);
  OVOpaqueValue::Array array(const PlistItem& container, unsigned depth);

  PlistReader& plist_;
  ReadLeaves& leaves_;
  ArchiveReader& objects_;
  std::string scratch_;
};

}  // namespace ov::detail
