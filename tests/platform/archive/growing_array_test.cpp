#include "platform/archive/growing_array.h"

#include <cstdint>
#include <memory>
#include <new>

#include <gtest/gtest.h>

using ov::detail::GrowingArray;

namespace {

TEST(GrowingArray, AnArrayThatCannotGrowSaysSoAndKeepsItsValues) {
  GrowingArray<std::uint64_t> array;
  array.push_back(7);
  EXPECT_THROW(array.extend(SIZE_MAX / 2), std::bad_alloc);
  EXPECT_THROW(array.extend(SIZE_MAX / 32 * 3), std::bad_alloc);
  EXPECT_EQ(array[0], 7U);
  EXPECT_EQ(array.size(), 1U);
}

TEST(GrowingArray, ReleasedValuesOutliveTheirArray) {
  std::shared_ptr<const std::uint32_t> values;
  {
    GrowingArray<std::uint32_t> array;
    for (std::uint32_t i = 0; i < 2'000'000; ++i) array.push_back(i);
    values = array.release();
    EXPECT_EQ(array.size(), 0U);
  }
  EXPECT_EQ(values.get()[1'999'999], 1'999'999U);
}

}  // namespace
