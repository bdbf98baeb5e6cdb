#include "platform/dispose.h"

#include <future>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/single_value.h>

namespace {

constexpr int kLong = 1'000'000;
constexpr int kLongEnough = 200'000;

TEST(Dispose, AChainOfAMillionValuesIsDestroyed) {
  OVRef<OVObject> last;
  const std::weak_ptr<OVObject> innermost = [&] {
    last = OVMutableSingleValue::init();
    return last;
  }();
  for (int i = 0; i < kLong; ++i) {
    auto value = OVMutableSingleValue::init();
    value->setValue(std::move(last));
    last = std::move(value);
  }
  last.reset();
  EXPECT_TRUE(innermost.expired());
}

TEST(Dispose, ALongChainOfListsIsDestroyed) {
  auto last = OVList<OVObject>::list();
  const std::weak_ptr<OVObject> innermost = last.object();
  for (int i = 0; i < kLongEnough; ++i) {
    auto list = OVList<OVObject>::list();
    list.push_back(std::exchange(last, nullptr));
    last = std::move(list);
  }
  last.clear();
  EXPECT_TRUE(innermost.expired());
}

TEST(Dispose, ALongChainOfDictionariesIsDestroyed) {
  auto last = OVDictionary<OVObject>::dictionary();
  const std::weak_ptr<OVObject> innermost = last.object();
  for (int i = 0; i < kLongEnough; ++i) {
    auto dictionary = OVDictionary<OVObject>::dictionary();
    dictionary.set("next", std::exchange(last, nullptr));
    last = std::move(dictionary);
  }
  last.set("next", OVString("something else"));
  EXPECT_TRUE(innermost.expired());
}

TEST(Dispose, ALongChainThroughMultipleValuesIsDestroyed) {
  OVRef<OVObject> last;
  for (int i = 0; i < kLongEnough; ++i) {
    auto element = OVMutableSingleValue::init();
    element->setValue(last == nullptr ? OVString("end") : std::move(last));
    auto value = OVMutableMultipleValue::init();
    value->addValue(element);
    last = std::move(value);
  }
  last.reset();
}

/// Notes when it is destroyed, and releases the next one as the library's classes do.
class Witness : public OVObject {
 public:
  Witness(int number, std::vector<int>& destroyed, OVRef<OVObject> next)
      : number_(number), destroyed_(destroyed), next_(std::move(next)) {}
  ~Witness() override {
    destroyed_.push_back(number_);
    ov::detail::dispose(std::move(next_));
  }

 private:
  int number_;
  std::vector<int>& destroyed_;
  OVRef<OVObject> next_;
};

TEST(Dispose, EverythingIsGoneWhenTheOutermostCallReturns) {
  std::vector<int> destroyed;
  OVRef<OVObject> last;
  for (int i = 0; i < 1000; ++i) last = std::make_shared<Witness>(i, destroyed, std::move(last));
  ov::detail::dispose(std::move(last));
  EXPECT_EQ(destroyed.size(), 1000U);
  EXPECT_EQ(destroyed.front(), 999);
}

TEST(Dispose, SharedObjectsStay) {
  std::vector<int> destroyed;
  const OVRef<OVObject> shared = std::make_shared<Witness>(0, destroyed, nullptr);
  OVRef<OVObject> reference = shared;
  ov::detail::dispose(std::move(reference));
  EXPECT_TRUE(destroyed.empty());
  ov::detail::dispose(nullptr);
}

TEST(Dispose, EveryThreadDestroysItsOwn) {
  const auto destroyAChain = [] {
    OVRef<OVObject> last;
    std::vector<int> destroyed;
    for (int i = 0; i < 10000; ++i) last = std::make_shared<Witness>(i, destroyed, std::move(last));
    last.reset();
    EXPECT_EQ(destroyed.size(), 10000U);
  };
  const auto other = std::async(std::launch::async, destroyAChain);
  destroyAChain();
}

}  // namespace
