#include <gtest/gtest.h>

#include "platform/archive/memory_limit.h"
#include "support/archive/costly_blocks.h"

// However a block is made, reading it takes no more than 64 times its size and a mebibyte.

void PrintTo(const CostlyBlock& block, std::ostream* stream) { *stream << block.name; }

namespace {

class ArchiveMemory : public testing::TestWithParam<CostlyBlock> {
 protected:
  static void expectBounded(std::size_t many) {
    OVRef<OVData> block;
    {
      ArchiveBuilder archive;
      block = GetParam().make(archive, many);
    }
    const std::size_t bound = 64 * block->size() + (1U << 20);
    EXPECT_TRUE(readsInMemory(block, Classes::registered, bound));
    EXPECT_TRUE(readsInMemory(block, Classes::none, bound));
  }
};

/// The mebibyte is most of the bound, as are stacks and tables of what is taken.
TEST_P(ArchiveMemory, IsBoundedForASmallBlock) { expectBounded(4900); }

/// Here it is next to nothing. Just more than a power of two, so that what grows by doubling has
/// just grown.
TEST_P(ArchiveMemory, IsBoundedForALargeBlock) { expectBounded(65540); }

INSTANTIATE_TEST_SUITE_P(, ArchiveMemory, testing::ValuesIn(costlyBlocks()),
                         [](const auto& block) { return block.param.name; });

TEST(ArchiveMemoryLimit, IsNoticedWhereItIsTooLow) {
  ArchiveBuilder archive;
  const auto list = archive.arrayOf("NSArray", std::vector<ArchiveBuilder::Uid>(60000, 0));
  const auto block = archive.archive(list);
  EXPECT_TRUE(readsInMemory(block, Classes::registered, 3U << 20));
  EXPECT_FALSE(readsInMemory(block, Classes::registered, 1U << 19));
}

}  // namespace
