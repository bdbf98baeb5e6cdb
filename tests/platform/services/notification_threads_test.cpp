#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <OVAddressBookSDK/notification_center.h>

namespace {

TEST(NotificationThreads, MayPostAddAndRemoveAtOnce) {
  const auto center = OVNotificationCenter::inProcess();
  constexpr int kThreads = 8;
  constexpr int kRounds = 200;
  std::atomic<int> witnessed = 0;
  std::atomic<int> own = 0;
  const auto witness =
      center->addObserver(nullptr, [&witnessed](const OVNotification&) { ++witnessed; });
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([center, number, &own] {
      const OVString name(std::to_string(number));
      for (int round = 0; round < kRounds; ++round) {
        const auto observer = center->addObserver(name, [&own](const OVNotification&) { ++own; });
        center->postNotificationName(name);
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(witnessed, kThreads * kRounds);
  EXPECT_EQ(own, kThreads * kRounds);
}

TEST(NotificationThreads, MayAddRemoveAndPostWhileTheyAreNotified) {
  const auto center = OVNotificationCenter::inProcess();
  constexpr int kThreads = 8;
  constexpr int kRounds = 100;
  std::atomic<int> nested = 0;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([center, number, &nested] {
      const OVString outer("outer " + std::to_string(number));
      const OVString inner("inner " + std::to_string(number));
      for (int round = 0; round < kRounds; ++round) {
        OVNotificationObserver first;
        OVNotificationObserver later;
        OVNotificationObserver added;
        first = center->addObserver(outer, [&](const OVNotification&) {
          added = center->addObserver(inner, [&](const OVNotification&) {
            ++nested;
            added.remove();
          });
          center->postNotificationName(inner);
          later.remove();
          first.remove();
        });
        later = center->addObserver(outer, [&](const OVNotification&) { nested = -1'000'000; });
        center->postNotificationName(outer);
        center->postNotificationName(outer);
        center->postNotificationName(inner);
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(nested, kThreads * kRounds);
}

TEST(NotificationThreads, MayReplaceTheDefaultCentreAtOnce) {
  const auto center = OVNotificationCenter::inProcess();
  std::vector<std::thread> threads;
  threads.reserve(8);
  for (int number = 0; number < 8; ++number) {
    threads.emplace_back([center, number] {
      for (int round = 0; round < 200; ++round) {
        if (number % 2 == 0) {
          OVNotificationCenter::setDefaultCenter(round % 2 == 0 ? center : nullptr);
        } else {
          OVNotificationCenter::defaultCenter()->postNotificationName("a");
        }
      }
    });
  }
  for (auto& thread : threads) thread.join();
  OVNotificationCenter::setDefaultCenter(nullptr);
  EXPECT_NE(OVNotificationCenter::defaultCenter(), center);
}

}  // namespace
