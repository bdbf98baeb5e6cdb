#include <OVAddressBookSDK/phone.h>

#include <gtest/gtest.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

OVRef<OVObjectPhone> phoneOf(const OVString& number) {
  return OVObjectPhone::initWithPhoneNumber(number);
}

bool isValid(const OVString& number) { return phoneOf(number)->valid(); }

TEST(PhoneNumber, NullIsRefused) { EXPECT_EQ(phoneOf(nullptr), nullptr); }

TEST(PhoneNumber, IsKeptUnchanged) {
  const OVString number = " +49 (30) 1234-567\n";
  const auto phone = phoneOf(number);
  EXPECT_TRUE(phone->phoneNumber().isSame(number));
  EXPECT_TRUE(phone->displayString().isSame(number));
}

TEST(PhoneNumber, EmptyOneIsValid) { EXPECT_TRUE(isValid("")); }

TEST(PhoneNumber, DigitsSpacesBracketsPlusAndMinusAreValid) {
  EXPECT_TRUE(isValid("+49 (30) 1234-567"));
  EXPECT_TRUE(isValid("0123456789"));
}

TEST(PhoneNumber, NothingElseIsChecked) {
  for (const OVString number : {"+-()", "1", ")(", "1+", "((((", "  ", "()"}) {
    EXPECT_TRUE(isValid(number)) << number;
  }
}

TEST(PhoneNumber, FullStopIsInvalid) { EXPECT_FALSE(isValid("555.1234")); }

TEST(PhoneNumber, LettersAreInvalid) { EXPECT_FALSE(isValid("555-ABCD")); }

TEST(PhoneNumber, NoBreakSpaceIsAllowed) { EXPECT_TRUE(isValid("555\u00A01234")); }

TEST(PhoneNumber, EveryLowByteIsAllowedOrNot) {
  const std::string_view allowed = "0123456789 ()+-";
  for (int byte = 1; byte < 0x80; ++byte) {
    const auto character = static_cast<char>(byte);
    EXPECT_EQ(isValid(std::string(1, character)), allowed.find(character) != allowed.npos) << byte;
  }
}

/// A text of one code unit above ASCII whose low byte is the one given.
OVString unitWithLowByte(int byte) {
  const int unit = 0x2200 + byte;
  const std::string utf8 = {static_cast<char>(0xE0 | unit >> 12),
                            static_cast<char>(0x80 | (unit >> 6 & 0x3F)),
                            static_cast<char>(0x80 | (unit & 0x3F))};
  return utf8;
}

TEST(PhoneNumber, EveryLowByteOfAnyCodeUnitIsAllowedOrNot) {
  const std::string_view allowed = "0123456789 \xA0()+-";
  for (int byte = 0; byte < 0x100; ++byte) {
    const auto character = static_cast<char>(byte);
    const bool isAllowed = allowed.find(character) != allowed.npos;
    const bool isDigit = '0' <= byte && byte <= '9';
    const OVString unit = unitWithLowByte(byte);
    EXPECT_EQ(isValid(unit), isAllowed) << byte;
    EXPECT_EQ(isValid("5" + unit.str() + "5"), isAllowed) << byte;
    EXPECT_EQ(phoneOf("")->adjustNumber(unit), isDigit ? std::string(1, character) : "") << byte;
  }
  for (const OVString number : {"\u0080", "\u009F", "\u00A1", "\u00FF"}) {
    EXPECT_FALSE(isValid(number));
  }
}

TEST(PhoneNumber, OffendingCharacterCountsAtAnyPlace) {
  EXPECT_FALSE(isValid("x555"));
  EXPECT_FALSE(isValid("555x"));
  EXPECT_FALSE(isValid(std::string("55\0005", 4)));
}

TEST(PhoneNumber, OnlyTheLowByteOfACodeUnitCounts) {
  EXPECT_TRUE(isValid("\u0130"));   // counts as 0
  EXPECT_TRUE(isValid("\u2020"));   // counts as a space
  EXPECT_TRUE(isValid("\u4E2D"));   // counts as -
  EXPECT_FALSE(isValid("\uFF11"));  // a full-width 1, which counts as 0x11
}

TEST(PhoneNumber, BothHalvesOfASurrogatePairCount) {
  EXPECT_TRUE(isValid("\U0001C030"));  // D830 DC30
  EXPECT_FALSE(isValid("\U0001C031x"));
  EXPECT_FALSE(isValid("\U0001F4DE"));  // D83D DCDE
  EXPECT_FALSE(isValid("\U0001C041"));  // D830 DC41
  EXPECT_FALSE(isValid("\U00010030"));  // D800 DC30
}

TEST(PhoneNumber, WorkingOutValidAgainChangesNothing) {
  const auto phone = phoneOf("555.1234");
  phone->initValid();
  EXPECT_FALSE(phone->valid());
}

TEST(PhoneNumber, AllThreeActionsArePossibleWhenValid) {
  for (const OVString number : {"555", "", "555x"}) {
    const auto phone = phoneOf(number);
    EXPECT_EQ(phone->canDoCall(), phone->valid());
    EXPECT_EQ(phone->canDoVideoCall(), phone->valid());
    EXPECT_EQ(phone->canDoSendMessage(), phone->valid());
  }
}

TEST(PhoneNumber, PhonesAreComparedByIdentity) { EXPECT_NE(phoneOf("1"), phoneOf("1")); }

class AdjustNumber : public testing::Test {
 protected:
  OVString adjusted(const OVString& number) const { return phone_->adjustNumber(number); }

 private:
  const OVRef<OVObjectPhone> phone_ = phoneOf("");
};

TEST_F(AdjustNumber, KeepsTheDigits) {
  EXPECT_EQ(adjusted("+49 (30) 1234-567"), "49301234567");
  EXPECT_EQ(adjusted("+1 (555) 010-9999"), "15550109999");
  EXPECT_EQ(adjusted("0123456789"), "0123456789");
}

TEST_F(AdjustNumber, DropsEverythingElse) { EXPECT_EQ(adjusted("a/:b;+-() \u00A0"), ""); }

TEST_F(AdjustNumber, OfNullAndNothingIsEmpty) {
  EXPECT_EQ(adjusted(nullptr), "");
  EXPECT_EQ(adjusted(""), "");
}

TEST_F(AdjustNumber, OnlyTheLowByteOfACodeUnitCounts) {
  EXPECT_EQ(adjusted("1\u01322"), "122");
  EXPECT_EQ(adjusted("\uFF11"), "");
  EXPECT_EQ(adjusted("\U0001C039"), "09");
}

TEST(PhoneArchive, HoldsTheNumberOnly) {
  const auto phone = phoneOf("555 1234");
  const ArchivedForm form(phone);
  EXPECT_EQ(form.classes(), (std::vector<OVString>{"OVObjectPhone", "NSObject"}));
  EXPECT_EQ(form.keys(), std::vector<OVString>{"phoneNumber"});
  EXPECT_EQ(restored<OVObjectPhone>(phone)->phoneNumber(), "555 1234");
}

TEST(PhoneArchive, ValidIsComputedAgain) {
  EXPECT_TRUE(restored<OVObjectPhone>(phoneOf("555 1234"))->valid());
  EXPECT_FALSE(restored<OVObjectPhone>(phoneOf("555.1234"))->valid());
}

TEST(PhoneArchive, WithoutNumberIsNullAndValid) {
  const auto phone = restored<OVObjectPhone>(archivedAs("OVObjectPhone", {}));
  ASSERT_NE(phone, nullptr);
  EXPECT_EQ(phone->phoneNumber(), nullptr);
  EXPECT_EQ(phone->displayString(), nullptr);
  EXPECT_TRUE(phone->valid());
  EXPECT_TRUE(ArchivedForm(phone).keys().empty());
}

TEST(PhoneArchive, EmptyNumberIsWritten) {
  EXPECT_EQ(ArchivedForm(phoneOf("")).keys(), std::vector<OVString>{"phoneNumber"});
  EXPECT_EQ(restored<OVObjectPhone>(phoneOf(""))->phoneNumber(), "");
}

TEST(PhoneArchive, NumberThatIsNoTextReadsAsNull) {
  const auto phone =
      restored<OVObjectPhone>(archivedAs("OVObjectPhone", {{"phoneNumber", foreignObject()}}));
  EXPECT_EQ(phone->phoneNumber(), nullptr);
  EXPECT_TRUE(phone->valid());
}

TEST(PhoneArchive, NumberThatIsNoTextIsWrittenBack) {
  const auto phone =
      restored<OVObjectPhone>(archivedAs("OVObjectPhone", {{"phoneNumber", foreignObject()}}));
  EXPECT_EQ(phone->displayString(), nullptr);
  EXPECT_TRUE(phone->valid());
  EXPECT_TRUE(isForeignObject(ArchivedForm(phone).object("phoneNumber")));
}

/// A host's own kind of number.
class Extension : public OVObjectPhone {
 public:
  explicit Extension(const OVString& number) : OVObjectPhone(number) {}
};

TEST(DerivedPhone, IsMadeWithItsNumber) {
  EXPECT_EQ(std::make_shared<Extension>("12")->phoneNumber(), "12");
  EXPECT_TRUE(std::make_shared<Extension>("12")->valid());
  EXPECT_FALSE(std::make_shared<Extension>("x")->valid());
  EXPECT_EQ(std::make_shared<Extension>(nullptr)->phoneNumber(), nullptr);
}

}  // namespace
