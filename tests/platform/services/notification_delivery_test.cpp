// What observers may do while a notification is being delivered.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/notification_center.h>

namespace {

using testing::ElementsAre;

class NotificationDelivery : public testing::Test {
 protected:
  OVNotificationObserver add(const std::string& what) {
    return center_->addObserver("a",
                                [this, what](const OVNotification&) { calls_.push_back(what); });
  }
  template <class Work>
  OVNotificationObserver addDoing(const std::string& what, Work work) {
    return center_->addObserver("a", [this, what, work](const OVNotification&) {
      calls_.push_back(what);
      work();
    });
  }
  void post() { center_->postNotificationName("a"); }

  OVRef<OVNotificationCenter> center_ = OVNotificationCenter::inProcess();
  std::vector<std::string> calls_;
};

TEST_F(NotificationDelivery, AnObserverMayRemoveItself) {
  OVNotificationObserver self;
  self = addDoing("self", [&self] { self.remove(); });
  const auto next = add("next");
  post();
  post();
  EXPECT_THAT(calls_, ElementsAre("self", "next", "next"));
}

TEST_F(NotificationDelivery, ALaterObserverThatHasBeenRemovedIsNotCalled) {
  OVNotificationObserver later;
  const auto first = addDoing("first", [&later] { later.remove(); });
  later = add("later");
  const auto last = add("last");
  post();
  EXPECT_THAT(calls_, ElementsAre("first", "last"));
}

TEST_F(NotificationDelivery, AnEarlierObserverMayBeRemoved) {
  auto earlier = add("earlier");
  const auto second = addDoing("second", [&earlier] { earlier.remove(); });
  post();
  post();
  EXPECT_THAT(calls_, ElementsAre("earlier", "second", "second"));
}

TEST_F(NotificationDelivery, AnObserverThatHasJustBeenAddedWaitsForTheNextPost) {
  std::vector<OVNotificationObserver> added;
  const auto first = addDoing("first", [&] {
    if (added.empty()) added.push_back(add("added"));
  });
  post();
  EXPECT_THAT(calls_, ElementsAre("first"));
  post();
  EXPECT_THAT(calls_, ElementsAre("first", "first", "added"));
}

TEST_F(NotificationDelivery, AnObserverMayPost) {
  int depth = 0;
  const auto first = addDoing("first", [&] {
    if (++depth == 1) post();
  });
  const auto second = add("second");
  post();
  EXPECT_THAT(calls_, ElementsAre("first", "first", "second", "second"));
}

TEST_F(NotificationDelivery, AnObserverThatANestedPostRemovesIsNotCalledAfterwards) {
  OVNotificationObserver second;
  int depth = 0;
  const auto first = addDoing("first", [&] {
    if (++depth == 1) post();
  });
  second = addDoing("second", [&second] { second.remove(); });
  post();
  EXPECT_THAT(calls_, ElementsAre("first", "first", "second"));
}

TEST_F(NotificationDelivery, AnObserverMayReleaseTheCentre) {
  const auto observer = addDoing("first", [this] { center_.reset(); });
  const auto next = add("next");
  const auto center = center_;
  center->postNotificationName("a");
  EXPECT_THAT(calls_, ElementsAre("first", "next"));
}

TEST_F(NotificationDelivery, AnObserverMayDestroyTheOwnerOfTheCentre) {
  struct Owner {
    OVRef<OVNotificationCenter> center;
    OVNotificationObserver observer;
  };
  auto owner = std::make_unique<Owner>();
  owner->center = std::move(center_);
  const std::weak_ptr<OVNotificationCenter> center = owner->center;
  owner->observer = owner->center->addObserver("a", [&](const OVNotification&) {
    owner.reset();
    calls_.push_back("destroyed");
  });
  owner->center->postNotificationName("a");
  EXPECT_THAT(calls_, ElementsAre("destroyed"));
  EXPECT_TRUE(center.expired());
}

TEST_F(NotificationDelivery, DestroyingACallbackMayUseTheCentre) {
  struct PostsAtTheEnd {
    OVRef<OVNotificationCenter> center;
    ~PostsAtTheEnd() { center->postNotificationName("a"); }
  };
  const auto witness = add("witness");
  auto captured = std::make_shared<PostsAtTheEnd>(PostsAtTheEnd{center_});
  calls_.clear();
  auto observer = center_->addObserver("b", [captured](const OVNotification&) {});
  captured.reset();
  observer.remove();
  EXPECT_THAT(calls_, ElementsAre("witness"));
}

}  // namespace
