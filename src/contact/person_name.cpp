#include <OVAddressBookSDK/person_name.h>

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "platform/maker.h"
#include "platform/services/name_order.h"

using ov::detail::TextField;

namespace {

constexpr std::string_view kFirstKey = "first";
constexpr std::string_view kMiddleKey = "middle";
constexpr std::string_view kLastKey = "last";

/// Bytes of the line break at the start of `text`; 0 when there is another character.
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

}  // namespace

OVObjectPersonName::OVObjectPersonName(const OVString& first, const OVString& middle,
                                       const OVString& last)
    : first_(withoutLineBreaks(first)),
      middle_(withoutLineBreaks(middle)),
      last_(withoutLineBreaks(last)) {}

OVRef<OVObjectPersonName> OVObjectPersonName::initWithFirstMiddleLast(const OVString& first,
                                                                      const OVString& middle,
                                                                      const OVString& last) {
  if (first.empty() && middle.empty() && last.empty()) return nullptr;
  return ov::detail::Maker::make<OVObjectPersonName>(first, middle, last);
}

OVString OVObjectPersonName::displayString() const {
  const bool lastInFront = ov::lastNameInFront();
  const OVString* only = nullptr;
  std::array<std::string_view, 5> pieces;
  std::size_t count = 0;
  bool hasText = false;
  for (const TextField* part :
       {lastInFront ? &last_ : &first_, &middle_, lastInFront ? &first_ : &last_}) {
    const OVString& text = part->text();
    if (text.isNull()) continue;
    if (hasText) pieces[count++] = " ";
    pieces[count++] = text.view();
    only = &text;
    hasText = hasText || !text.empty();
  }
  return count == 1 ? *only : ov::detail::joined(std::span(pieces).first(count));
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
  first_.encode(coder, kFirstKey);
  middle_.encode(coder, kMiddleKey);
  last_.encode(coder, kLastKey);
}

void OVObjectPersonName::initWithCoder(OVKeyedUnarchiver& coder) {
  first_ = TextField::decoded(coder, kFirstKey);
  middle_ = TextField::decoded(coder, kMiddleKey);
  last_ = TextField::decoded(coder, kLastKey);
}
