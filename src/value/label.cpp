#include <OVAddressBookSDK/label.h>

#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/maker.h"

namespace {

constexpr std::string_view kNameKey = "name";
constexpr std::string_view kDisplayNameKey = "displayName";

}  // namespace

OVRef<OVLabel> OVLabel::init() { return ov::detail::Maker::make<OVLabel>(); }

const OVClass& OVLabel::archivedClass() {
  static constexpr OVClass record{"OVLabel", nullptr, &ov::detail::Maker::empty<OVLabel>};
  return record;
}

const OVClass* OVLabel::classForCoder() const { return &archivedClass(); }

void OVLabel::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (const OVString text = name_.load()) coder.encodeObjectForKey(text, kNameKey);
  if (const OVString text = displayName_.load()) coder.encodeObjectForKey(text, kDisplayNameKey);
}

void OVLabel::initWithCoder(OVKeyedUnarchiver& coder) {
  name_.place(coder.decodeStringForKey(kNameKey));
  displayName_.place(coder.decodeStringForKey(kDisplayNameKey));
}
