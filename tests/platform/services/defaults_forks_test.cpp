// Forks of a process whose threads are using the user defaults. The child must not meet a lock that
// only a thread of its parent could give back; should it, an alarm ends it. Those threads allocate
// nothing while they go on: not every allocator lets a child of many threads use it.

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <thread>

#include "stored_defaults.h"
#include "support/printers.h"

namespace {

constexpr unsigned kLongestInSeconds = 60;

class DefaultsForks : public StoredDefaults {
 protected:
  /// Forks again and again while a thread does `work` without a break.
  static void expectChildrenSucceed(const std::function<void()>& work,
                                    const std::function<bool()>& inChild, int children) {
    std::atomic<bool> isWorking = false;
    std::atomic<bool> done = false;
    const std::jthread thread([&] {
      while (!done) {
        work();
        isWorking = true;
      }
    });
    while (!isWorking) std::this_thread::yield();
    for (int number = 0; number < children && !HasFailure(); ++number) {
      ChildProcess child([&] {
        ::alarm(kLongestInSeconds);
        return inChild();
      });
      EXPECT_TRUE(child.succeeded()) << "child " << number;
    }
    done = true;
  }

  const OVString key_ = "key";
};

TEST_F(DefaultsForks, AChildReadsWhileItsParentsThreadReads) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, key_);
  expectChildrenSucceed([&] { (void)defaults->objectForKey(key_); },
                        [&] { return integer(*defaults, key_) == 1; }, 50);
}

TEST_F(DefaultsForks, AChildSetsWhileItsParentsThreadReads) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, key_);
  std::int64_t number = 1;
  expectChildrenSucceed([&] { (void)defaults->objectForKey(key_); },
                        [&] {
                          setInteger(*defaults, ++number, key_);
                          return integer(*openStore(), key_) == number && defaults->synchronize();
                        },
                        10);
}

TEST_F(DefaultsForks, ParentAndChildBothReadWhatOthersSetAfterwards) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, key_);
  EXPECT_EQ(integer(*defaults, key_), 1);
  for (std::int64_t value = 2; value < 20; ++value) {
    Pipe isSet;
    ChildProcess child([&] { return isSet.read() == "set" && integer(*defaults, key_) == value; });
    setInteger(*openStore(), value, key_);
    isSet.write("set");
    EXPECT_TRUE(child.succeeded());
    EXPECT_EQ(integer(*defaults, key_), value);
  }
}

TEST_F(DefaultsForks, AChildUsesAStoreThatAThreadOfItsParentIsWaitingIn) {
  const auto defaults = openHurriedStore();
  const OVRef<OVObject> value = OVNumber::numberWithInteger(1);
  defaults->setObjectForKey(value, key_);
  const ChildProcess holder = stoppedWriter();
  expectChildrenSucceed([&] { defaults->setObjectForKey(value, key_); },
                        [&] {
                          setInteger(*defaults, 2, key_);
                          return integer(*defaults, key_) == 2 && !defaults->synchronize();
                        },
                        10);
}

TEST_F(DefaultsForks, AChildUsesAStoreInMemory) {
  const auto defaults = OVUserDefaults::inMemory();
  setInteger(*defaults, 1, key_);
  expectChildrenSucceed([&] { (void)defaults->objectForKey(key_); },
                        [&] {
                          setInteger(*defaults, 2, key_);
                          return integer(*defaults, key_) == 2;
                        },
                        50);
}

TEST_F(DefaultsForks, AChildFindsTheStandardDefaults) {
  ::setenv("XDG_CONFIG_HOME", home_.path().c_str(), 1);
  OVUserDefaults::setApplicationIdentifier("application");
  setInteger(*OVUserDefaults::standardUserDefaults(), 1, key_);
  expectChildrenSucceed([] { (void)OVUserDefaults::standardUserDefaults(); },
                        [&] {
                          OVUserDefaults::setApplicationIdentifier("application");
                          return integer(*OVUserDefaults::standardUserDefaults(), key_) == 1;
                        },
                        50);
}

}  // namespace
