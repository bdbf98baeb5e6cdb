#include <OVAddressBookSDK/notification_center.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NotificationCenter : public testing::Test {
 protected:
  OVNotificationCenter::Callback noting(const std::string& what) {
    return [this, what](const OVNotification&) { calls_.push_back(what); };
  }
  OVNotificationObserver add(const OVString& name, const std::string& what) {
    return center_->addObserver(name, noting(what));
  }

  OVRef<OVNotificationCenter> center_ = OVNotificationCenter::inProcess();
  std::vector<std::string> calls_;
};

TEST_F(NotificationCenter, DeliversBeforeThePostReturnsOnThePostersThread) {
  std::thread::id thread;
  const auto observer = center_->addObserver(
      "a", [&](const OVNotification&) { thread = std::this_thread::get_id(); });
  center_->postNotificationName("a");
  EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST_F(NotificationCenter, DeliversOncePerPost) {
  const auto observer = add("a", "a");
  center_->postNotificationName("a");
  center_->postNotificationName("a");
  EXPECT_THAT(calls_, ElementsAre("a", "a"));
}

TEST_F(NotificationCenter, CallsObserversInTheOrderInWhichTheyWereAdded) {
  const auto first = add("a", "first");
  const auto second = add(nullptr, "second");
  const auto third = add("a", "third");
  center_->postNotificationName("a");
  EXPECT_THAT(calls_, ElementsAre("first", "second", "third"));
}

TEST_F(NotificationCenter, OtherNamesAreNotObserved) {
  const auto observer = add("a", "a");
  center_->postNotificationName("A");
  center_->postNotificationName("");
  EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(NotificationCenter, TheNullNameObservesAllNames) {
  std::vector<OVString> names;
  const auto observer = center_->addObserver(
      nullptr, [&](const OVNotification& notification) { names.push_back(notification.name); });
  center_->postNotificationName("a");
  center_->postNotificationName("");
  EXPECT_THAT(names, ElementsAre(OVString("a"), OVString("")));
}

TEST_F(NotificationCenter, TheNullNamePostsNothing) {
  const auto observer = add(nullptr, "all");
  center_->postNotificationName(nullptr);
  EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(NotificationCenter, CarriesObjectAndUserInformation) {
  const OVRef<OVObject> object = OVString("sender");
  const auto userInfo = OVDictionary<OVObject>::dictionary({{"key", OVString("value")}});
  OVNotification received;
  const auto observer = center_->addObserver(
      "a", [&](const OVNotification& notification) { received = notification; });
  center_->postNotificationName("a", object, userInfo);
  EXPECT_EQ(received.name, "a");
  EXPECT_EQ(received.object, object);
  EXPECT_EQ(received.userInfo, userInfo);
}

TEST_F(NotificationCenter, ObjectAndUserInformationMayBeNull) {
  OVNotification received = {"", OVString("x"), OVDictionary<OVObject>::dictionary()};
  const auto observer = center_->addObserver(
      "a", [&](const OVNotification& notification) { received = notification; });
  center_->postNotificationName("a");
  EXPECT_EQ(received.object, nullptr);
  EXPECT_EQ(received.userInfo, nullptr);
}

TEST_F(NotificationCenter, AnObserverIsRemovedWithItsHandle) {
  { const auto observer = add("a", "a"); }
  center_->postNotificationName("a");
  EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(NotificationCenter, RemovingTwiceIsHarmless) {
  auto observer = add("a", "a");
  observer.remove();
  observer.remove();
  center_->postNotificationName("a");
  EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(NotificationCenter, AMovedHandleKeepsTheObserver) {
  auto observer = add("a", "a");
  OVNotificationObserver moved = std::move(observer);
  observer = OVNotificationObserver();
  center_->postNotificationName("a");
  EXPECT_THAT(calls_, ElementsAre("a"));
}

TEST_F(NotificationCenter, AnAssignedHandleEndsTheEarlierObservation) {
  auto observer = add("a", "earlier");
  observer = add("a", "later");
  center_->postNotificationName("a");
  EXPECT_THAT(calls_, ElementsAre("later"));
}

TEST_F(NotificationCenter, TheSameCallbackAddedTwiceIsCalledTwice) {
  const auto callback = noting("a");
  const auto first = center_->addObserver("a", callback);
  const auto second = center_->addObserver("a", callback);
  center_->postNotificationName("a");
  EXPECT_THAT(calls_, ElementsAre("a", "a"));
}

TEST_F(NotificationCenter, AnObserverNeedsACallback) {
  EXPECT_THROW((void)center_->addObserver("a", nullptr), std::invalid_argument);
}

TEST_F(NotificationCenter, AHandleMayOutliveTheCentre) {
  auto observer = add("a", "a");
  center_.reset();
  observer.remove();
  EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(NotificationCenter, ARemovedCallbackIsDestroyed) {
  auto captured = std::make_shared<int>(0);
  auto observer = center_->addObserver("a", [captured](const OVNotification&) {});
  EXPECT_EQ(captured.use_count(), 2);
  observer.remove();
  EXPECT_EQ(captured.use_count(), 1);
}

TEST_F(NotificationCenter, WhatACallbackThrowsReachesThePosterAndEndsTheDelivery) {
  const auto first = center_->addObserver(
      "a", [](const OVNotification&) { throw std::domain_error("from the observer"); });
  const auto second = add("a", "second");
  EXPECT_THROW(center_->postNotificationName("a"), std::domain_error);
  EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(NotificationCenter, TheDefaultCentreIsAlwaysTheSame) {
  ASSERT_NE(OVNotificationCenter::defaultCenter(), nullptr);
  EXPECT_EQ(OVNotificationCenter::defaultCenter(), OVNotificationCenter::defaultCenter());
}

TEST_F(NotificationCenter, AHostInstallsAnotherDefaultCentre) {
  const auto original = OVNotificationCenter::defaultCenter();
  OVNotificationCenter::setDefaultCenter(center_);
  EXPECT_EQ(OVNotificationCenter::defaultCenter(), center_);
  OVNotificationCenter::setDefaultCenter(nullptr);
  EXPECT_EQ(OVNotificationCenter::defaultCenter(), original);
}

}  // namespace
