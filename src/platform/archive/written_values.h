#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/met_objects.h"
#include "platform/archive/plist_writer.h"
#include "platform/archive/recent_leaves.h"
#include "platform/keyed_hash.h"

namespace ov::detail {

/// Writes a text, number, date or data block as one object of a property list.
PlistWriter::Number writeLeaf(PlistWriter& plist, const OVObject& leaf);

/// What is in the objects of an archive themselves: their keys, each written once, and plain
/// values, equal ones written once in a while.
class WrittenValues {
 public:
  using Number = PlistWriter::Number;

  explicit WrittenValues(PlistWriter& plist) : plist_(plist), recent_(plist) {}

  Number key(std::string_view key);
  Number text(std::string_view text) { return once(plist_.text(text)); }
  Number texts(std::span<const OVString> texts);
  Number integer(std::int64_t value);
  Number boolean(bool value) { return once(plist_.boolean(value)); }
  Number real(double value) { return once(plist_.real(value)); }
  Number data(std::span<const std::byte> bytes) { return once(plist_.data(bytes)); }
  /// A text, number, date or data block; null for null. A shared one is written once.
  Number leaf(const OVRef<OVObject>& leaf);

 private:
  Number once(Number last) { return recent_.add(last).object; }

  PlistWriter& plist_;
  RecentLeaves recent_;
  MetObjects met_;
  std::unordered_map<std::string, Number, KeyedHash, std::equal_to<>> keys_;
  std::array<Number, 256> smallIntegers_{};  // 0: not written yet
};

}  // namespace ov::detail
