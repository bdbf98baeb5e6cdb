#include "platform/archive/opaque_reader.h"

#include <string_view>
#include <utility>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"
#include "platform/archive/plain_entries.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

std::vector<OVOpaqueField> OpaqueReader::fields(const PlistItem& dictionary, unsigned depth) {
  plist_.charge(dictionary.count * sizeof(OVOpaqueField));
  std::vector<OVOpaqueField> fields;
  fields.reserve(static_cast<std::size_t>(dictionary.count));
  for (std::uint64_t i = 0; i < dictionary.count; ++i) {
    const PlistItem keyItem = keyAt(plist_, dictionary, i);
    plist_.charge(keyItem.count);
    const std::string_view text = plist_.text(keyItem, scratch_);
    plist_.charge(2 * text.size() + 64);
    const OVString key(text);
    if (depth == 0 && key == archive::kClass) continue;
    fields.push_back({key, value(plist_.reference(dictionary, dictionary.count + i), depth)});
  }
  return fields;
}

OVOpaqueValue OpaqueReader::value(std::uint64_t item, unsigned depth) {
  if (depth >= ArchiveReader::kMaxDepth) {
    throw OVInvalidArchive("plain containers that contain themselves or are nested too deeply");
  }
  const ArchiveReader::Deeper deeper(objects_);
  const PlistItem found = plist_.item(item);
  switch (found.kind) {
    case Kind::uid:
      return {OVOpaqueValue::Reference{objects_.objectOf(item)}};
    case Kind::array:
      return {array(found, depth + 1)};
    case Kind::set:
      return {OVOpaqueValue::Set{array(found, depth + 1)}};
    case Kind::dictionary:
      return {fields(found, depth + 1)};
    default:
      return {OVOpaqueValue::Inline{leaves_.sharedLeaf(found)}};
  }
}

OVOpaqueValue::Array OpaqueReader::array(const PlistItem& container, unsigned depth) {
  plist_.charge(container.count * sizeof(OVOpaqueValue));
  OVOpaqueValue::Array values;
  values.reserve(static_cast<std::size_t>(container.count));
  for (std::uint64_t i = 0; i < container.count; ++i) {
    values.push_back(value(plist_.reference(container, i), depth));
  }
  return values;
}

}  // namespace ov::detail
