#include <OVAddressBookSDK/atomic.h>

#include <cstddef>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/text.h>

#include "support/printers.h"

namespace {

/// Reads and writes the field from both sides at once, many times.
template <class Read, class Write>
void race(Read read, Write write) {
  constexpr std::size_t kRounds = 20000;
  std::latch start(2);
  std::jthread reader([&] {
    start.arrive_and_wait();
    for (std::size_t i = 0; i < kRounds; ++i) read();
  });
  std::jthread writer([&] {
    start.arrive_and_wait();
    for (std::size_t i = 0; i < kRounds; ++i) write(i);
  });
}

TEST(Atomic, ReadersGetAWholeReferenceWhileAnotherThreadReplacesIt) {
  OVAtomic<std::shared_ptr<const std::string>> field(std::make_shared<const std::string>("0"));
  race(
      [&] {
        const auto read = field.load();
        ASSERT_EQ(*read, std::string(read->size(), '0'));
      },
      [&](std::size_t i) {
        field.store(std::make_shared<const std::string>(std::string(1 + i % 50, '0')));
      });
}

TEST(Atomic, ReadersGetAWholeTextWhileAnotherThreadReplacesIt) {
  OVAtomic<OVString> field;
  race(
      [&] {
        const OVString read = field.load();
        ASSERT_TRUE(read.isNull() || read == "even" || read == "odd");
      },
      [&](std::size_t i) {
        field.store(i % 3 == 0 ? OVString() : OVString(i % 2 == 0 ? "even" : "odd"));
      });
}

TEST(Atomic, TwoThreadsMayStoreAtOnce) {
  OVAtomic<OVString> field("start");
  race([&] { field.store("a"); }, [&](std::size_t) { field.store("b"); });
  EXPECT_TRUE(field.load() == "a" || field.load() == "b");
}

TEST(Atomic, TextsAreSharedBetweenThreads) {
  const OVString text("shared by two threads");
  race([&] { ASSERT_EQ(OVString(text).size(), 21U); },
       [&](std::size_t) {
         const OVRef<OVObject> object = text;
         ASSERT_TRUE(ov::cast<OVString>(object).isSame(text));
       });
}

TEST(Atomic, StartsEmptyOrWithTheGivenValue) {
  EXPECT_TRUE(OVAtomic<OVString>().load().isNull());
  EXPECT_EQ(OVAtomic<OVString>("given").load(), "given");
}

/// Uses the field that it is in while it is destroyed.
struct Meddler {
  OVAtomic<std::shared_ptr<Meddler>>* field;
  bool* found;
  ~Meddler() { *found = field->load() == nullptr; }
};

TEST(Atomic, TheOldValueIsReleasedAfterTheLock) {
  OVAtomic<std::shared_ptr<Meddler>> field;
  bool foundTheNewValue = false;
  field.store(std::shared_ptr<Meddler>(new Meddler{&field, &foundTheNewValue}));
  field.store(nullptr);
  EXPECT_TRUE(foundTheNewValue);
}

TEST(Atomic, AnOwnerAloneNeedsNoLock) {
  OVAtomic<OVString> field;
  field.place("placed");
  EXPECT_EQ(field.load(), "placed");
  EXPECT_EQ(field.take(), "placed");
  EXPECT_TRUE(field.load().isNull());
}

}  // namespace
