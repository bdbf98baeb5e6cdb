#include <string>
#include <thread>
#include <vector>

#include "stored_defaults.h"
#include "support/printers.h"

namespace {

class StoredDefaultsThreads : public StoredDefaults {};

TEST(DefaultsThreads, MayReadAndSetInMemoryAtOnce) {
  const auto defaults = OVUserDefaults::inMemory();
  std::vector<std::thread> threads;
  threads.reserve(8);
  for (int number = 0; number < 8; ++number) {
    threads.emplace_back([defaults, number] {
      const OVString own(std::to_string(number));
      for (int round = 0; round < 200; ++round) {
        defaults->setBoolForKey(true, own);
        defaults->setObjectForKey(round % 2 == 0 ? nullptr : OVRef<OVObject>(own), "shared");
        EXPECT_TRUE(defaults->boolForKey(own));
        (void)defaults->objectForKey("shared");
      }
    });
  }
  for (auto& thread : threads) thread.join();
  for (int number = 0; number < 8; ++number) {
    EXPECT_TRUE(defaults->boolForKey(std::to_string(number)));
  }
}

TEST_F(StoredDefaultsThreads, MayUseOneStoreAtOnce) {
  const auto defaults = openStore();
  std::vector<std::thread> threads;
  threads.reserve(8);
  for (int number = 0; number < 8; ++number) {
    threads.emplace_back([&, number] {
      const OVString own(std::to_string(number));
      for (int round = 0; round < 20; ++round) {
        setInteger(*defaults, round, own);
        EXPECT_EQ(integer(*defaults, own), round);
        setInteger(*defaults, number, "shared");
        EXPECT_TRUE(round % 10 != 0 || defaults->synchronize());
      }
    });
  }
  for (auto& thread : threads) thread.join();
  for (int number = 0; number < 8; ++number) {
    EXPECT_EQ(integer(*openStore(), std::to_string(number)), 19);
  }
  EXPECT_EQ(integer(*openStore(), "shared"), integer(*defaults, "shared"));
}

TEST(DefaultsThreads, MayReplaceTheStandardDefaultsAtOnce) {
  OVUserDefaults::setStandardUserDefaults(OVUserDefaults::inMemory());
  std::vector<std::thread> threads;
  threads.reserve(8);
  for (int number = 0; number < 8; ++number) {
    threads.emplace_back([number] {
      for (int round = 0; round < 200; ++round) {
        if (number % 2 == 0) {
          OVUserDefaults::setStandardUserDefaults(OVUserDefaults::inMemory());
        } else {
          OVUserDefaults::standardUserDefaults()->setBoolForKey(true, "key");
        }
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_NE(OVUserDefaults::standardUserDefaults(), nullptr);
  OVUserDefaults::setStandardUserDefaults(nullptr);
}

}  // namespace
