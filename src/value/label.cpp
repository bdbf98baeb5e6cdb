#include <OVAddressBookSDK/label.h>

#include <string_view>

#include "platform/maker.h"

using ov::detail::TextField;

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
  name_.load().encode(coder, kNameKey);
  displayName_.load().encode(coder, kDisplayNameKey);
}

void OVLabel::initWithCoder(OVKeyedUnarchiver& coder) {
  name_.place(TextField::decoded(coder, kNameKey));
  displayName_.place(TextField::decoded(coder, kDisplayNameKey));
}
