#include "platform/archive/large_memory.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/archive/growing_array.h"

using ov::detail::GrowingArray;
using ov::detail::LargeAllocator;
using ov::detail::LargeMemory;

namespace {

constexpr std::size_t kSmall = 1000;
constexpr std::size_t kLarge = 5'000'000;
constexpr std::size_t kLarger = 90'000'000;

/// Memory whose bytes tell where they are.
class LargeMemoryResize : public testing::Test {
 protected:
  ~LargeMemoryResize() override { LargeMemory::free(memory_, bytes_); }

  void resize(std::size_t bytes) {
    void* resized = LargeMemory::resize(memory_, bytes_, bytes);
    ASSERT_NE(resized, nullptr);
    memory_ = static_cast<std::uint8_t*>(resized);
    const std::size_t kept = std::min(bytes_, bytes);
    std::size_t same = 0;
    while (same < kept && memory_[same] == mark(same)) ++same;
    ASSERT_EQ(same, kept);
    for (std::size_t i = kept; i < bytes; ++i) memory_[i] = mark(i);
    bytes_ = bytes;
  }

  static std::uint8_t mark(std::size_t i) { return static_cast<std::uint8_t>(i * 7 + i / 4096); }

  std::uint8_t* memory_ = nullptr;
  std::size_t bytes_ = 0;
};

TEST_F(LargeMemoryResize, KeepsTheContentFromSmallToLarge) {
  for (const std::size_t bytes : {kSmall, kLarge, kLarger}) resize(bytes);
}

TEST_F(LargeMemoryResize, KeepsTheContentFromLargeToSmall) {
  for (const std::size_t bytes : {kLarger, kLarge, kSmall}) resize(bytes);
}

TEST_F(LargeMemoryResize, MovesWhereTheNextPagesAreTaken) {
  resize(kLarge);
  std::vector<void*> others;
  for (int i = 0; i < 8; ++i) {
    others.push_back(LargeMemory::resize(nullptr, 0, kLarge));
    resize(bytes_ + kLarge);
  }
  for (void* other : others) LargeMemory::free(other, kLarge);
}

TEST_F(LargeMemoryResize, KeepsWhatThereIsWhenThereIsNoMore) {
  for (const std::size_t bytes : {kSmall, kLarge}) {
    resize(bytes);
    EXPECT_EQ(LargeMemory::resize(memory_, bytes_, SIZE_MAX), nullptr);
    EXPECT_EQ(LargeMemory::resize(memory_, bytes_, SIZE_MAX / 4 * 3), nullptr);
    resize(bytes);
  }
}

TEST(LargeMemoryUse, AnArrayThatCannotGrowSaysSoAndKeepsItsValues) {
  GrowingArray<std::uint64_t> array;
  array.push_back(7);
  EXPECT_THROW(array.extend(SIZE_MAX / 2), std::bad_alloc);
  EXPECT_THROW(array.extend(SIZE_MAX / 32 * 3), std::bad_alloc);
  EXPECT_EQ(array[0], 7U);
  EXPECT_EQ(array.size(), 1U);
}

TEST(LargeMemoryUse, ReleasedValuesOutliveTheirArray) {
  std::shared_ptr<const std::uint32_t> values;
  {
    GrowingArray<std::uint32_t> array;
    for (std::uint32_t i = 0; i < 2'000'000; ++i) array.push_back(i);
    values = array.release();
    EXPECT_EQ(array.size(), 0U);
  }
  EXPECT_EQ(values.get()[1'999'999], 1'999'999U);
}

TEST(LargeMemoryUse, AContainerCanLiveInIt) {
  std::vector<std::string, LargeAllocator<std::string>> texts(1'000'000, "a");
  EXPECT_EQ(texts.back(), "a");
}

}  // namespace
