#include "platform/archive/read_leaves.h"

#include <cstdint>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/number.h>

#include "platform/archive/archive_slot.h"
#include "platform/arena_text.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

OVString ReadLeaves::text(const PlistItem& item) {
  plist_.charge(item.count * 3 + 64);  // a UTF-16 unit takes up to three bytes
  const std::string_view text = plist_.text(item, scratch_);
  return ArchiveSlot::adopted(ArenaText::fits(text) ? ArenaText::make(arena_, text)
                                                    : TextObject::make({&text, 1}));
}

OVRef<OVObject> ReadLeaves::leaf(const PlistItem& item) {
  plist_.charge(item.count * 2 + 96);
  switch (item.kind) {
    case Kind::null:
      return nullptr;
    case Kind::ascii:
    case Kind::utf16:
      return text(item);
    case Kind::boolean:
      return OVNumber::numberWithBool(plist_.boolean(item));
    case Kind::integer: {
      const auto [value, isUnsigned] = plist_.integer(item);
      return isUnsigned ? OVNumber::numberWithUnsigned(static_cast<std::uint64_t>(value))
                        : OVNumber::numberWithInteger(value);
    }
    case Kind::real:
      return OVNumber::numberWithDouble(plist_.real(item));
    case Kind::date:
      return OVDate::dateWithTimeIntervalSinceReferenceDate(plist_.real(item));
    case Kind::data:
      return OVData::dataWithBytes(plist_.data(item));
    default:
      throw OVInvalidArchive("an object of the archive is a container without a class");
  }
}

OVRef<OVObject> ReadLeaves::sharedLeaf(const PlistItem& item) {
  constexpr std::uint64_t kLong = 64;
  if (item.count < kLong) return leaf(item);
  plist_.charge(sizeof(Long) + 64);
  Long& known = long_[item.bytes];
  if (known.object == nullptr || known.item.kind != item.kind || known.item.count != item.count) {
    known = {item, leaf(item)};
  }
  return known.object;
}

}  // namespace ov::detail
