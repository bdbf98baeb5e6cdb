#include <new>
#include <vector>

#include <gtest/gtest.h>

#include "platform/object_arena.h"
#include "support/memory/failing_memory.h"

using ov::detail::ObjectArena;

namespace {

constexpr std::size_t kSize = 1000;

TEST(ObjectArenaMemory, APieceIsFreedWithItsLastObject) {
  std::vector<void*> objects(1000);
  const long before = blocksInUse();
  {
    ObjectArena arena(0);
    for (void*& object : objects) object = arena.allocate(kSize);
  }
  EXPECT_GE(blocksInUse() - before, 10);
  for (std::size_t i = 1; i < objects.size(); ++i) ObjectArena::release(objects[i], kSize);
  EXPECT_EQ(blocksInUse() - before, 1);
  ObjectArena::release(objects[0], kSize);
  EXPECT_EQ(blocksInUse(), before);
}

TEST(ObjectArenaMemory, AnArenaThatGetsNoneKeepsWhatItHas) {
  const long before = blocksInUse();
  {
    ObjectArena arena(0);
    void* first = arena.allocate(kSize);
    {
      const MemoryShortage shortage(MemoryShortage::Kind::lasting, 1);
      const auto takeMany = [&] {
        for (int i = 0; i < 100; ++i) ObjectArena::release(arena.allocate(kSize), kSize);
      };
      EXPECT_THROW(takeMany(), std::bad_alloc);
    }
    ObjectArena::release(first, kSize);
    ObjectArena::release(arena.allocate(kSize), kSize);
  }
  EXPECT_EQ(blocksInUse(), before);
}

}  // namespace
