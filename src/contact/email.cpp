#include <OVAddressBookSDK/email.h>

#include <algorithm>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/workspace.h>

#include "platform/maker.h"

namespace {

constexpr std::string_view kEmailKey = "email";

}  // namespace

OVObjectEmail::OVObjectEmail(const OVString& email) : email_(email) { initValid(); }

OVRef<OVObjectEmail> OVObjectEmail::initWithEmail(const OVString& email) {
  if (email.isNull()) return nullptr;
  return ov::detail::Maker::make<OVObjectEmail>(email);
}

void OVObjectEmail::initValid() {
  const bool valid = std::ranges::count(email_.text().view(), '@') == 1;
  if (valid != valid_) valid_ = valid;  // once it is right it is only read, by any thread
}

void OVObjectEmail::sendEmail() const {
  if (valid()) OVWorkspace::sharedWorkspace()->openURL("mailto:" + email_.text().str());
}

const OVClass& OVObjectEmail::archivedClass() {
  static constexpr OVClass record{"OVObjectEmail", nullptr,
                                  &ov::detail::Maker::empty<OVObjectEmail>};
  return record;
}

const OVClass* OVObjectEmail::classForCoder() const { return &archivedClass(); }

void OVObjectEmail::encodeWithCoder(OVKeyedArchiver& coder) const {
  email_.encode(coder, kEmailKey);
}

void OVObjectEmail::initWithCoder(OVKeyedUnarchiver& coder) {
  email_ = ov::detail::TextField::decodedToBeSearched(coder, kEmailKey);
  initValid();
}
