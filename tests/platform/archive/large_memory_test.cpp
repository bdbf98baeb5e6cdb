#include "platform/archive/large_memory.h"

#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

using ov::detail::LargeAllocator;
using ov::detail::LargeMemory;

namespace {

TEST(LargeMemory, OfAnySizeCanBeUsedToItsEnd) {
  for (const std::size_t bytes :
       {0UL, 1UL, 1000UL, (4UL << 20) - 1, 4UL << 20, 5'000'000UL, 90'000'000UL}) {
    void* memory = LargeMemory::allocate(bytes);
    ASSERT_NE(memory, nullptr);
    std::memset(memory, 1, bytes);
    LargeMemory::free(memory, bytes);
  }
}

TEST(LargeMemory, SaysThatThereIsNoMore) {
  for (const std::size_t bytes : {SIZE_MAX, SIZE_MAX - (4 << 20), SIZE_MAX / 4 * 3}) {
    EXPECT_THROW((void)LargeMemory::allocate(bytes), std::bad_alloc);
  }
}

TEST(LargeMemory, AContainerCanLiveInIt) {
  std::vector<std::string, LargeAllocator<std::string>> texts(1'000'000, "a");
  EXPECT_EQ(texts.back(), "a");
}

}  // namespace
