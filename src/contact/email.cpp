#include <OVAddressBookSDK/email.h>

#include <algorithm>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/workspace.h>

#include "platform/maker.h"

namespace {

constexpr std::string_view kEmailKey = "email";

}  // namespace

OVRef<OVObjectEmail> OVObjectEmail::initWithEmail(const OVString& email) {
  if (email.isNull()) return nullptr;
  auto made = ov::detail::Maker::make<OVObjectEmail>();
  made->email_ = email;
  made->initValid();
  return made;
}

void OVObjectEmail::initValid() {
  const bool valid = std::ranges::count(email_.view(), '@') == 1;
  if (valid != valid_) valid_ = valid;  // once it is right it is only read, by any thread
}

void OVObjectEmail::sendEmail() const {
  if (valid()) OVWorkspace::sharedWorkspace()->openURL("mailto:" + email_.str());
}

const OVClass& OVObjectEmail::archivedClass() {
  static constexpr OVClass record{"OVObjectEmail", nullptr,
                                  &ov::detail::Maker::empty<OVObjectEmail>};
  return record;
}

const OVClass* OVObjectEmail::classForCoder() const { return &archivedClass(); }

void OVObjectEmail::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (!email_.isNull()) coder.encodeObjectForKey(email_, kEmailKey);
}

void OVObjectEmail::initWithCoder(OVKeyedUnarchiver& coder) {
  email_ = coder.decodeStringForKey(kEmailKey);
  initValid();
}
