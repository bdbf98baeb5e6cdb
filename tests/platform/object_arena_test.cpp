#include "platform/object_arena.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

using ov::detail::ObjectArena;

namespace {

constexpr std::size_t kFew = 0;
constexpr std::size_t kMany = 1 << 30;

struct Room {
  void* place;
  std::size_t bytes;
  int filling;
};

/// Takes room of many sizes, and fills each with a value of its own.
std::vector<Room> filled(ObjectArena& arena, int count) {
  std::vector<Room> rooms;
  for (int i = 0; i < count; ++i) {
    const std::size_t bytes = 1 + static_cast<std::size_t>(i) * 37 % ObjectArena::kLargest;
    rooms.push_back({arena.allocate(bytes), bytes, i % 251});
    std::memset(rooms.back().place, rooms.back().filling, bytes);
  }
  return rooms;
}

void expectUntouched(const std::vector<Room>& rooms) {
  for (const Room& room : rooms) {
    const auto* bytes = static_cast<const unsigned char*>(room.place);
    for (std::size_t i = 0; i < room.bytes; ++i) ASSERT_EQ(bytes[i], room.filling);
  }
}

void release(const std::vector<Room>& rooms) {
  for (const Room& room : rooms) ObjectArena::release(room.place, room.bytes);
}

class ObjectArenaOf : public testing::TestWithParam<std::size_t> {};

}  // namespace

TEST_P(ObjectArenaOf, GivesEveryObjectRoomOfItsOwn) {
  ObjectArena arena(GetParam());
  const auto rooms = filled(arena, 20000);
  expectUntouched(rooms);
  release(rooms);
}

TEST_P(ObjectArenaOf, IsOutlivedByItsObjects) {
  std::vector<Room> rooms;
  {
    ObjectArena arena(GetParam());
    rooms = filled(arena, 20000);
  }
  expectUntouched(rooms);
  release(rooms);
}

TEST_P(ObjectArenaOf, AlignsItsObjects) {
  ObjectArena arena(GetParam());
  for (const Room& room : filled(arena, 500)) {
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(room.place) % ObjectArena::kAlignment, 0U);
    ObjectArena::release(room.place, room.bytes);
  }
}

TEST_P(ObjectArenaOf, HasItsObjectsReleasedOnAnyThread) {
  std::vector<Room> rooms;
  {
    ObjectArena arena(GetParam());
    rooms = filled(arena, 4000);
  }
  const std::vector<Room> half(rooms.begin() + 2000, rooms.end());
  rooms.resize(2000);
  std::thread other([&] { release(half); });
  release(rooms);
  other.join();
}

INSTANTIATE_TEST_SUITE_P(FewAndManyObjects, ObjectArenaOf, testing::Values(kFew, kMany));

TEST(ObjectArena, TheOneUsedLastIsCurrentOnItsThread) {
  EXPECT_EQ(ObjectArena::current(), nullptr);
  ObjectArena outer(kFew);
  const ObjectArena::Use useOuter(&outer);
  {
    ObjectArena inner(kFew);
    const ObjectArena::Use useInner(&inner);
    EXPECT_EQ(ObjectArena::current(), &inner);
    std::thread([] { EXPECT_EQ(ObjectArena::current(), nullptr); }).join();
  }
  EXPECT_EQ(ObjectArena::current(), &outer);
}
