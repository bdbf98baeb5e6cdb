#include <OVAddressBookSDK/user_defaults.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>

#include "support/printers.h"

namespace {

class UserDefaults : public testing::Test {
 protected:
  bool truthOf(const OVRef<OVObject>& object) {
    defaults_->setObjectForKey(object, "key");
    return defaults_->boolForKey("key");
  }

  OVRef<OVUserDefaults> defaults_ = OVUserDefaults::inMemory();
};

TEST_F(UserDefaults, AnAbsentEntryIsNullAndFalse) {
  EXPECT_EQ(defaults_->objectForKey("absent"), nullptr);
  EXPECT_FALSE(defaults_->boolForKey("absent"));
}

TEST_F(UserDefaults, ATruthValueIsReadBack) {
  defaults_->setBoolForKey(true, "key");
  EXPECT_TRUE(defaults_->boolForKey("key"));
  defaults_->setBoolForKey(false, "key");
  EXPECT_FALSE(defaults_->boolForKey("key"));
  EXPECT_NE(defaults_->objectForKey("key"), nullptr);
}

TEST_F(UserDefaults, ObjectsOfEachKindAreReadBack) {
  const auto data = OVData::dataWithText("bytes");
  const auto date = OVDate::dateWithTimeIntervalSinceReferenceDate(1.5);
  const auto number = OVNumber::numberWithInteger(7);
  defaults_->setObjectForKey(OVString("text"), "text");
  defaults_->setObjectForKey(data, "data");
  defaults_->setObjectForKey(date, "date");
  defaults_->setObjectForKey(number, "number");
  EXPECT_EQ(ov::cast<OVString>(defaults_->objectForKey("text")), "text");
  EXPECT_EQ(defaults_->objectForKey("data"), data);
  EXPECT_EQ(defaults_->objectForKey("date"), date);
  EXPECT_EQ(defaults_->objectForKey("number"), number);
}

TEST_F(UserDefaults, ASecondValueReplacesTheFirst) {
  defaults_->setObjectForKey(OVString("text"), "key");
  defaults_->setBoolForKey(true, "key");
  EXPECT_EQ(ov::cast<OVString>(defaults_->objectForKey("key")), nullptr);
  EXPECT_TRUE(defaults_->boolForKey("key"));
}

TEST_F(UserDefaults, KeysAreComparedExactly) {
  defaults_->setBoolForKey(true, "key");
  defaults_->setBoolForKey(true, "");
  EXPECT_FALSE(defaults_->boolForKey("Key"));
  EXPECT_TRUE(defaults_->boolForKey(""));
}

TEST_F(UserDefaults, NullRemovesTheEntry) {
  defaults_->setObjectForKey(OVString("text"), "key");
  defaults_->setObjectForKey(nullptr, "key");
  defaults_->setObjectForKey(nullptr, "absent");
  EXPECT_EQ(defaults_->objectForKey("key"), nullptr);
}

TEST_F(UserDefaults, TheNullKeyReadsAsAbsent) {
  EXPECT_EQ(defaults_->objectForKey(nullptr), nullptr);
  EXPECT_FALSE(defaults_->boolForKey(nullptr));
}

TEST_F(UserDefaults, NothingCanBeSetUnderTheNullKey) {
  EXPECT_THROW(defaults_->setBoolForKey(true, nullptr), std::invalid_argument);
  EXPECT_THROW(defaults_->setObjectForKey(OVString("text"), nullptr), std::invalid_argument);
  EXPECT_THROW(defaults_->setObjectForKey(nullptr, nullptr), std::invalid_argument);
}

TEST_F(UserDefaults, ObjectsOfOtherClassesAreRefusedAndChangeNothing) {
  defaults_->setBoolForKey(true, "key");
  EXPECT_THROW(defaults_->setObjectForKey(OVList<OVObject>::list(), "key"), std::invalid_argument);
  EXPECT_TRUE(defaults_->boolForKey("key"));
}

TEST_F(UserDefaults, NumbersAreTrueWhenTheyAreNotZero) {
  EXPECT_TRUE(truthOf(OVNumber::numberWithInteger(-1)));
  EXPECT_TRUE(truthOf(OVNumber::numberWithUnsigned(std::numeric_limits<std::uint64_t>::max())));
  EXPECT_TRUE(truthOf(OVNumber::numberWithDouble(0.5)));
  EXPECT_FALSE(truthOf(OVNumber::numberWithInteger(0)));
  EXPECT_FALSE(truthOf(OVNumber::numberWithDouble(-0.0)));
}

TEST_F(UserDefaults, TextsAreTrueByTheirBeginning) {
  for (const char* text : {"YES", "yes", "Y", "true", "True", "t", "1", "9", " 1", "+1", "-1",
                           "001", "\t +007", "-Yes"}) {
    EXPECT_TRUE(truthOf(OVString(text))) << text;
  }
  for (const char* text :
       {"", "NO", "no", "false", "0", "00", " ", "+", "-0", "on", "x1", "+-1", "\u0661"}) {
    EXPECT_FALSE(truthOf(OVString(text))) << text;
  }
}

TEST_F(UserDefaults, OtherKindsAreFalse) {
  EXPECT_FALSE(truthOf(OVData::dataWithText("YES")));
  EXPECT_FALSE(truthOf(OVDate::dateWithTimeIntervalSinceReferenceDate(1)));
}

TEST_F(UserDefaults, AStoreInMemoryIsAlwaysSafelyStored) {
  defaults_->setBoolForKey(true, "key");
  EXPECT_TRUE(defaults_->synchronize());
  EXPECT_TRUE(defaults_->boolForKey("key"));
}

TEST_F(UserDefaults, EachStoreInMemoryIsItsOwn) {
  defaults_->setBoolForKey(true, "key");
  EXPECT_FALSE(OVUserDefaults::inMemory()->boolForKey("key"));
}

TEST_F(UserDefaults, AHostInstallsAnotherStore) {
  const auto original = OVUserDefaults::standardUserDefaults();
  ASSERT_NE(original, nullptr);
  OVUserDefaults::setStandardUserDefaults(defaults_);
  EXPECT_EQ(OVUserDefaults::standardUserDefaults(), defaults_);
  OVUserDefaults::setStandardUserDefaults(nullptr);
  EXPECT_EQ(OVUserDefaults::standardUserDefaults(), original);
}

TEST_F(UserDefaults, MayBeAskedByWhatEndsWithAValue) {
  int asked = 0;
  const auto owner = [&] {
    return std::shared_ptr<const void>(
        "", [&](const void*) { asked += defaults_->boolForKey("key") ? 2 : 1; });
  };
  defaults_->setObjectForKey(OVData::dataWithBytesNoCopy({}, owner()), "key");
  defaults_->setObjectForKey(OVData::dataWithBytesNoCopy({}, owner()), "key");
  EXPECT_EQ(asked, 1);
  defaults_->setObjectForKey(nullptr, "key");
  EXPECT_EQ(asked, 2);
}

}  // namespace
