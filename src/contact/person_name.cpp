#include <OVAddressBookSDK/person_name.h>

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/maker.h"
#include "platform/services/name_order.h"

namespace {

constexpr std::string_view kFirstKey = "first";
constexpr std::string_view kMiddleKey = "middle";
constexpr std::string_view kLastKey = "last";

/// Bytes of the line break at the start of `text`; 0 when another character stands there.
std::size_t lineBreakLength(std::string_view text) {
  if (text.starts_with('\n') || text.starts_with('\r')) return 1;
  return text.starts_with("\u0085") ? 2 : 0;
}

OVString withoutLineBreaks(const OVString& text) {
  std::string kept;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t dropped = lineBreakLength(rest);
    if (dropped == 0) kept.push_back(rest.front());
    rest.remove_prefix(dropped == 0 ? 1 : dropped);
  }
  if (kept.empty()) return nullptr;
  return kept.size() == text.size() ? text : OVString(kept);
}

void appendPart(std::pmr::string& name, const OVString& part) {
  if (part.isNull()) return;
  if (!name.empty()) name.push_back(' ');
  name.append(part);
}

void encodePart(OVKeyedArchiver& coder, const OVString& part, std::string_view key) {
  if (!part.isNull()) coder.encodeObjectForKey(part, key);
}

}  // namespace

OVRef<OVObjectPersonName> OVObjectPersonName::initWithFirstMiddleLast(const OVString& first,
                                                                      const OVString& middle,
                                                                      const OVString& last) {
  if (first.empty() && middle.empty() && last.empty()) return nullptr;
  auto made = ov::detail::Maker::make<OVObjectPersonName>();
  made->first_ = withoutLineBreaks(first);
  made->middle_ = withoutLineBreaks(middle);
  made->last_ = withoutLineBreaks(last);
  return made;
}

OVString OVObjectPersonName::displayString() const {
  const bool lastInFront = ov::lastNameInFront();
  // Put together outside the heap, unless the name is very long.
  std::array<std::byte, 256> room;
  std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
  std::pmr::string name(&memory);
  name.reserve(first_.size() + middle_.size() + last_.size() + 2);
  appendPart(name, lastInFront ? last_ : first_);
  appendPart(name, middle_);
  appendPart(name, lastInFront ? first_ : last_);
  return std::string_view(name);
}

OVString OVObjectPersonName::standString(const OVString& text) const {
  return withoutLineBreaks(text);
}

const OVClass& OVObjectPersonName::archivedClass() {
  static constexpr OVClass record{"OVObjectPersonName", nullptr,
                                  &ov::detail::Maker::empty<OVObjectPersonName>};
  return record;
}

const OVClass* OVObjectPersonName::classForCoder() const { return &archivedClass(); }

void OVObjectPersonName::encodeWithCoder(OVKeyedArchiver& coder) const {
  encodePart(coder, first_, kFirstKey);
  encodePart(coder, middle_, kMiddleKey);
  encodePart(coder, last_, kLastKey);
}

void OVObjectPersonName::initWithCoder(OVKeyedUnarchiver& coder) {
  first_ = coder.decodeStringForKey(kFirstKey);
  middle_ = coder.decodeStringForKey(kMiddleKey);
  last_ = coder.decodeStringForKey(kLastKey);
}
