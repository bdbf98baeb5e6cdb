#include <memory>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/object.h>

namespace {

class Base : public OVObject {};
class Derived : public Base {};
class Other : public OVObject {};

TEST(Cast, GivesTheObjectUnderItsClassAndEveryBase) {
  const OVRef<OVObject> object = std::make_shared<Derived>();
  EXPECT_EQ(ov::cast<Derived>(object), object);
  EXPECT_EQ(ov::cast<Base>(object), object);
  EXPECT_EQ(ov::cast<OVObject>(object), object);
}

TEST(Cast, IsNullForAnotherClass) {
  EXPECT_EQ(ov::cast<Derived>(std::make_shared<Base>()), nullptr);
  EXPECT_EQ(ov::cast<Other>(std::make_shared<Base>()), nullptr);
  EXPECT_EQ(ov::cast<OVList<OVObject>>(std::make_shared<Base>()), nullptr);
  EXPECT_EQ(ov::cast<OVDictionary<OVObject>>(std::make_shared<Base>()), nullptr);
  EXPECT_EQ(ov::cast<OVList<OVObject>>(OVDictionary<OVObject>::dictionary()), nullptr);
}

TEST(Cast, IsNullForNull) {
  EXPECT_EQ(ov::cast<Base>(nullptr), nullptr);
  EXPECT_EQ(ov::cast<OVList<OVObject>>(nullptr), nullptr);
  EXPECT_EQ(ov::cast<OVDictionary<OVObject>>(nullptr), nullptr);
}

TEST(Cast, SharesOwnership) {
  OVRef<OVObject> object = std::make_shared<Derived>();
  const std::weak_ptr<OVObject> watched = object;
  OVRef<Base> base = ov::cast<Base>(object);
  object.reset();
  EXPECT_FALSE(watched.expired());
  base.reset();
  EXPECT_TRUE(watched.expired());
}

TEST(Object, CannotBeArchivedUnlessItsClassSaysSo) {
  EXPECT_EQ(std::make_shared<Base>()->classForCoder(), nullptr);
}

class OwnValue : public OVMutableSingleValue {};
class OwnValues : public OVMultipleValue {};

TEST(Cast, SeesEveryKindOfValueThroughItsReadOnlyClass) {
  for (const OVRef<OVObject>& each :
       {OVRef<OVObject>(OVSingleValue::init()), OVRef<OVObject>(OVMutableSingleValue::init()),
        OVRef<OVObject>(std::make_shared<OwnValue>())}) {
    EXPECT_EQ(ov::cast<OVSingleValue>(each), each);
    EXPECT_EQ(ov::cast<OVMultipleValue>(each), nullptr);
  }
  for (const OVRef<OVObject>& each :
       {OVRef<OVObject>(OVMultipleValue::init()), OVRef<OVObject>(OVMutableMultipleValue::init()),
        OVRef<OVObject>(std::make_shared<OwnValues>())}) {
    EXPECT_EQ(ov::cast<OVMultipleValue>(each), each);
    EXPECT_EQ(ov::cast<OVSingleValue>(each), nullptr);
  }
  EXPECT_EQ(ov::cast<OVMutableSingleValue>(OVSingleValue::init()), nullptr);
  EXPECT_EQ(ov::cast<OVMutableMultipleValue>(OVMultipleValue::init()), nullptr);
}

}  // namespace
