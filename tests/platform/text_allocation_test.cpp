#include <atomic>
#include <cstdlib>
#include <new>
#include <string_view>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/text.h>

// A program of its own: it counts every allocation.

namespace {

std::atomic<long> allocations = 0;

template <class Work>
long allocationsOf(Work work) {
  const long before = allocations;
  work();
  return allocations - before;
}

constexpr OVString kMobile(ov::detail::kConstant<"Mobile">);

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* place = std::malloc(size == 0 ? 1 : size)) return place;
  throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t /*size*/) noexcept { std::free(place); }

namespace {

TEST(TextAllocations, AreCountedHere) {
  EXPECT_EQ(allocationsOf([] { OVString("one"); }), 1);
  EXPECT_EQ(allocationsOf([] { OVString(std::string_view("")); }), 1);
}

TEST(TextAllocations, ConstantsCostNone) {
  bool good = true;
  EXPECT_EQ(allocationsOf([&] {
              const OVString copy = kMobile;
              OVString assigned;
              assigned = OVProPertyName;
              const OVRef<OVObject> object = copy;
              good = good && ov::cast<OVString>(object).isSame(kMobile);
              good = good && assigned == "Name" && copy != assigned && copy < assigned;
              good = good && copy.view() == "Mobile" && std::hash<OVString>()(copy) != 0;
            }),
            0);
  EXPECT_TRUE(good);
}

TEST(TextAllocations, CopiesCostNone) {
  const OVString text("a text that is long enough to be allocated");
  EXPECT_EQ(allocationsOf([&] {
              OVString copy = text;
              const OVString moved = std::move(copy);
              static_cast<void>(moved == text);
            }),
            0);
}

TEST(TextAllocations, ComparingWithCharactersCostsNone) {
  const OVString text("text");
  bool isEqual = false;
  EXPECT_EQ(allocationsOf([&] { isEqual = text == "text" && text == std::string_view("text"); }),
            0);
  EXPECT_TRUE(isEqual);
}

TEST(TextAllocations, NullCostsNone) {
  EXPECT_EQ(allocationsOf([] {
              const OVString null;
              const OVString fromPointer(static_cast<const char*>(nullptr));
              const OVRef<OVObject> object = null;
            }),
            0);
}

}  // namespace
