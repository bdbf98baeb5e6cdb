#include <utility>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

void ArchiveReader::fillOpaque(OVOpaqueObject& object, const PlistItem& dictionary) {
  object.fields_.clear();
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
    const bool isClass = depth == 0 && key == archive::kClass;
    const Item value = plist_.reference(dictionary, dictionary.count + i);
    fields.push_back({key, isClass ? OVOpaqueValue() : opaqueValue(value, depth)});
  }
  return fields;
}

OVOpaqueValue ArchiveReader::opaqueValue(Item item, unsigned depth) {
  if (depth >= kDeepest) throw OVInvalidArchive("containers inside each other without end");
  const Deeper deeper(depth_);
  const PlistItem value = plist_.item(item);
  switch (value.kind) {
    case Kind::uid:
      return {OVOpaqueValue::Reference{objectAt(uidOf(item))}};
    case Kind::array:
      return {opaqueArray(value, depth + 1)};
    case Kind::set:
      return {OVOpaqueValue::Set{opaqueArray(value, depth + 1)}};
    case Kind::dictionary:
      return {opaqueFields(value, depth + 1)};
    default:
      return {OVOpaqueValue::Inline{inlineLeaf(value)}};
  }
}

/// What stands inside an opaque object. Long texts and data blocks that many objects hold are made
/// once, as our own writer writes them once.
OVRef<OVObject> ArchiveReader::inlineLeaf(const PlistItem& item) {
  constexpr std::uint64_t kLong = 64;
  if (item.count < kLong) return leaf(item);
  charge(sizeof(InlineLeaf) + 64);
  InlineLeaf& known = inlineLeaves_[item.bytes];
  if (known.object == nullptr || known.item.kind != item.kind || known.item.count != item.count) {
    known = {item, leaf(item)};
  }
  return known.object;
}

OVOpaqueValue::Array ArchiveReader::opaqueArray(const PlistItem& container, unsigned depth) {
  charge(container.count * sizeof(OVOpaqueValue));
  OVOpaqueValue::Array values;
  values.reserve(static_cast<std::size_t>(container.count));
  for (std::uint64_t i = 0; i < container.count; ++i) {
    values.push_back(opaqueValue(plist_.reference(container, i), depth));
  }
  return values;
}

}  // namespace ov::detail
