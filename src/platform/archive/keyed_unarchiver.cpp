#include <OVAddressBookSDK/keyed_unarchiver.h>

#include <limits>

#include "platform/archive/archive_reader.h"
#include "platform/real.h"

using ov::detail::PlistItem;
using Kind = PlistItem::Kind;

OVInvalidArchive::~OVInvalidArchive() = default;

OVRef<OVObject> OVKeyedUnarchiver::unarchiveObjectWithData(const OVRef<OVData>& data) {
  return ov::detail::unarchived(data, ov::detail::registeredClass);
}

OVRef<OVObject> OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(const OVRef<OVData>& data) {
  return ov::detail::unarchived(data, nullptr);
}

void OVKeyedUnarchiver::registerClass(const OVClass& hostClass) {
  ov::detail::registerHostClass(hostClass);
}

bool OVKeyedUnarchiver::containsValueForKey(std::string_view key) const {
  return reader_.find(fields_, key).has_value();
}

OVRef<OVObject> OVKeyedUnarchiver::decodeObjectForKey(std::string_view key) {
  const auto item = reader_.find(fields_, key);
  return item ? reader_.objectOf(*item) : nullptr;
}

OVString OVKeyedUnarchiver::decodeStringForKey(std::string_view key) {
  const auto item = reader_.find(fields_, key);
  return item ? reader_.textOf(*item) : nullptr;
}

bool OVKeyedUnarchiver::decodeListForKey(std::vector<OVRef<OVObject>>& items,
                                         std::string_view key) {
  const auto item = reader_.find(fields_, key);
  return item && reader_.readList(*item, items);
}

std::int64_t OVKeyedUnarchiver::decodeIntegerForKey(std::string_view key) const {
  const PlistItem value = reader_.valueOf(fields_, key);
  if (value.kind == Kind::integer) {
    const auto [integer, isUnsigned] = reader_.plist().integer(value);
    return isUnsigned ? std::numeric_limits<std::int64_t>::max() : integer;
  }
  if (value.kind == Kind::real) return ov::detail::integerFromReal(reader_.plist().real(value));
  return value.kind == Kind::boolean && reader_.plist().boolean(value) ? 1 : 0;
}

bool OVKeyedUnarchiver::decodeBoolForKey(std::string_view key) const {
  return decodeDoubleForKey(key) != 0;
}

double OVKeyedUnarchiver::decodeDoubleForKey(std::string_view key) const {
  const PlistItem value = reader_.valueOf(fields_, key);
  if (value.kind == Kind::real) return reader_.plist().real(value);
  if (value.kind == Kind::integer) {
    const auto [integer, isUnsigned] = reader_.plist().integer(value);
    return isUnsigned ? static_cast<double>(static_cast<std::uint64_t>(integer))
                      : static_cast<double>(integer);
  }
  return value.kind == Kind::boolean && reader_.plist().boolean(value) ? 1 : 0;
}

std::span<const std::byte> OVKeyedUnarchiver::decodeBytesForKey(std::string_view key) const {
  const PlistItem value = reader_.valueOf(fields_, key);
  return value.kind == Kind::data ? reader_.plist().data(value) : std::span<const std::byte>();
}
