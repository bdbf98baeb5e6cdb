#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/text.h>

#include "support/printers.h"

namespace {

constexpr OVString kPhone(ov::detail::kConstant<"Phone">);
constexpr OVString kPhoneAgain(ov::detail::kConstant<"Phone">);
constexpr OVString kEmpty(ov::detail::kConstant<"">);
constexpr OVString kWithNul(ov::detail::kConstant<"a\0b">);

TEST(TextAsObject, ComesBackAsTheSameText) {
  const OVString text("datum");
  const OVRef<OVObject> object = text;
  const OVString back = ov::cast<OVString>(object);
  EXPECT_TRUE(back.isSame(text));
  EXPECT_EQ(ov::cast<OVObject>(object), object);
}

TEST(TextAsObject, IsOneObjectHoweverOftenItIsTurned) {
  const OVString text("datum");
  const OVRef<OVObject> first = text;
  const OVRef<OVObject> second = text;
  EXPECT_EQ(first, second);
  EXPECT_NE(first, OVRef<OVObject>(OVString("datum")));
}

TEST(TextAsObject, NullIsTheNullReference) {
  EXPECT_EQ(OVRef<OVObject>(OVString()), nullptr);
  EXPECT_TRUE(ov::cast<OVString>(OVRef<OVObject>()).isNull());
}

TEST(TextAsObject, EmptyTextIsAnObject) {
  const OVRef<OVObject> object = OVString("");
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(ov::cast<OVString>(object), "");
}

TEST(TextAsObject, KeepsTheTextAlive) {
  OVRef<OVObject> object;
  {
    const OVString text("kept by the object alone");
    object = text;
  }
  OVString text = ov::cast<OVString>(object);
  object.reset();
  EXPECT_EQ(text, "kept by the object alone");
}

TEST(TextAsObject, AnotherClassReadsAsNull) {
  const OVRef<OVObject> date = OVDate::dateWithTimeIntervalSinceReferenceDate(0);
  EXPECT_TRUE(ov::cast<OVString>(date).isNull());
  const OVRef<OVObject> text = OVString("no date");
  EXPECT_EQ(ov::cast<OVDate>(text), nullptr);
}

TEST(TextConstants, HaveOneIdentity) {
  EXPECT_TRUE(kPhone.isSame(kPhoneAgain));
  const OVString copy = kPhone;
  EXPECT_TRUE(copy.isSame(kPhone));
  EXPECT_TRUE(ov::cast<OVString>(OVRef<OVObject>(kPhone)).isSame(kPhone));
  EXPECT_EQ(OVRef<OVObject>(kPhone), OVRef<OVObject>(kPhoneAgain));
  EXPECT_FALSE(kPhone.isSame(OVString("Phone")));
  EXPECT_EQ(kPhone, OVString("Phone"));
}

TEST(TextConstants, AreTexts) {
  EXPECT_EQ(kPhone, "Phone");
  EXPECT_STREQ(kPhone.c_str(), "Phone");
  EXPECT_EQ(kPhone.size(), 5U);
  EXPECT_EQ(kEmpty, "");
  EXPECT_NE(kEmpty, nullptr);
  EXPECT_EQ(kWithNul.view(), std::string_view("a\0b", 3));
}

TEST(TextConstants, OutliveTheirReferences) {
  for (int i = 0; i < 3; ++i) {
    OVRef<OVObject> object = kPhone;
    OVString text = ov::cast<OVString>(object);
    object.reset();
    text = nullptr;
  }
  EXPECT_EQ(kPhone, "Phone");
}

// Static initialisers of a host may use constants, in whatever order they run.
const OVString copiedWhileStarting = kPhone;  // NOLINT(cert-err58-cpp)
const bool wasEqualWhileStarting = kPhone == "Phone";
constinit OVString nullWithoutInitialiser;

TEST(TextConstants, ServeStaticInitialisers) {
  EXPECT_TRUE(copiedWhileStarting.isSame(kPhone));
  EXPECT_TRUE(wasEqualWhileStarting);
  EXPECT_TRUE(nullWithoutInitialiser.isNull());
}

TEST(TextConstants, CanBeHeldWeakly) {
  OVRef<OVObject> object = kPhone;
  const std::weak_ptr<OVObject> watched = object;
  EXPECT_FALSE(watched.expired());
  EXPECT_EQ(watched.lock(), object);
  object.reset();
  EXPECT_EQ(watched.lock(), OVRef<OVObject>(kPhone));
  EXPECT_EQ(std::weak_ptr<OVObject>(OVRef<OVObject>(kEmpty)).lock(), OVRef<OVObject>(kEmpty));
}

}  // namespace
