#include <OVAddressBookSDK/phone.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/workspace.h>

#include "platform/ascii.h"
#include "platform/maker.h"
#include "platform/utf16.h"

namespace {

constexpr std::string_view kPhoneNumberKey = "phoneNumber";

/// Numbers are looked at through the low byte of each code unit only, in tests and in the digits
/// taken out of them: far-off characters that share it count as well.
char lowByte(char16_t unit) { return static_cast<char>(unit & 0xFF); }

constexpr std::array kAllowedInNumber = []() {
  std::array<bool, 256> allowed{};
  for (const char byte : std::string_view("0123456789 \xA0()+-"))
    allowed[static_cast<unsigned char>(byte)] = true;
  return allowed;
}();

bool isAllowedInNumber(char16_t unit) { return kAllowedInNumber[unit & 0xFF]; }

void openDigits(const char* scheme, const OVObjectPhone& phone) {
  OVWorkspace::sharedWorkspace()->openURL(scheme + phone.adjustNumber(phone.phoneNumber()).str());
}

}  // namespace

OVObjectPhone::OVObjectPhone(const OVString& phoneNumber) : phoneNumber_(phoneNumber) {
  initValid();
}

OVRef<OVObjectPhone> OVObjectPhone::initWithPhoneNumber(const OVString& phoneNumber) {
  if (phoneNumber.isNull()) return nullptr;
  return ov::detail::Maker::make<OVObjectPhone>(phoneNumber);
}

void OVObjectPhone::initValid() {
  const bool valid =
      std::ranges::all_of(ov::detail::Utf16Units(phoneNumber_.text()), isAllowedInNumber);
  if (valid != valid_) valid_ = valid;  // once it is right it is only read, by any thread
}

void OVObjectPhone::call() const {
  if (canDoCall()) openDigits("tel:", *this);
}

void OVObjectPhone::videoCall() const {
  if (canDoVideoCall()) openDigits("facetime://", *this);
}

void OVObjectPhone::sendMessage() const {
  if (canDoSendMessage()) openDigits("imessage://", *this);
}

OVString OVObjectPhone::adjustNumber(const OVString& number) const {
  std::string digits;
  for (const char16_t unit : ov::detail::Utf16Units(number)) {
    if (ov::isASCIIDigit(lowByte(unit))) digits.push_back(lowByte(unit));
  }
  return digits;
}

const OVClass& OVObjectPhone::archivedClass() {
  static constexpr OVClass record{"OVObjectPhone", nullptr,
                                  &ov::detail::Maker::empty<OVObjectPhone>};
  return record;
}

const OVClass* OVObjectPhone::classForCoder() const { return &archivedClass(); }

void OVObjectPhone::encodeWithCoder(OVKeyedArchiver& coder) const {
  phoneNumber_.encode(coder, kPhoneNumberKey);
}

void OVObjectPhone::initWithCoder(OVKeyedUnarchiver& coder) {
  phoneNumber_ = ov::detail::TextField::decodedToBeSearched(coder, kPhoneNumberKey);
  initValid();
}
