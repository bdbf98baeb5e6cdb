#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/notification_names.h>

#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

class BookNameOrder : public testing::Test {
 protected:
  const FakePlatform platform_;
};

TEST_F(BookNameOrder, IsFirstNameFirstInFreshUserDefaults) {
  EXPECT_FALSE(OVAddressBook::lastNameInFront());
}

TEST_F(BookNameOrder, IsKeptInTheUserDefaults) {
  OVAddressBook::setlastNameInFront(true);
  EXPECT_TRUE(OVAddressBook::lastNameInFront());
  EXPECT_TRUE(platform_.defaults->boolForKey("l_n_f"));
  OVAddressBook::setlastNameInFront(false);
  EXPECT_FALSE(OVAddressBook::lastNameInFront());
  EXPECT_FALSE(platform_.defaults->boolForKey("l_n_f"));
}

TEST_F(BookNameOrder, IsReadAfreshEachTime) {
  EXPECT_FALSE(OVAddressBook::lastNameInFront());
  platform_.defaults->setBoolForKey(true, "l_n_f");
  EXPECT_TRUE(OVAddressBook::lastNameInFront());
}

TEST_F(BookNameOrder, IsAnnouncedOnEveryCallBeforeItReturns) {
  std::vector<OVNotification> announced;
  bool seen = false;
  const auto observer =
      platform_.center->addObserver(nullptr, [&](const OVNotification& notification) {
        announced.push_back(notification);
        seen = OVAddressBook::lastNameInFront();
      });
  OVAddressBook::setlastNameInFront(true);
  EXPECT_EQ(announced.size(), 1U);
  EXPECT_TRUE(seen);
  OVAddressBook::setlastNameInFront(true);
  ASSERT_EQ(announced.size(), 2U);
  EXPECT_TRUE(OVAddressBook::lastNameInFront());
  for (const OVNotification& notification : announced) {
    EXPECT_EQ(notification.name, OV_LastNmaeFrontChange_notification);
    EXPECT_EQ(notification.object, nullptr);
    EXPECT_EQ(notification.userInfo, nullptr);
  }
}

}  // namespace
