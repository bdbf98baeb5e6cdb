#include "platform/built_once.h"

#include <atomic>
#include <stdexcept>

#include "support/processes/together.h"

namespace {

using ov::detail::BuiltOnce;

TEST(BuiltOnce, DoesNotExistBeforeItIsAskedFor) {
  static BuiltOnce<int> number;
  EXPECT_EQ(number.peek(), nullptr);
  EXPECT_EQ(number.get([] { return 7; }), 7);
  ASSERT_NE(number.peek(), nullptr);
  EXPECT_EQ(*number.peek(), 7);
}

TEST(BuiltOnce, IsBuiltByTheFirstCallOnly) {
  static BuiltOnce<int> number;
  const int& first = number.get([] { return 7; });
  EXPECT_EQ(&number.get([] { return 8; }), &first);
  EXPECT_EQ(first, 7);
}

TEST(BuiltOnce, IsTriedAgainAfterAFailure) {
  static BuiltOnce<int> number;
  EXPECT_THROW(number.get([]() -> int { throw std::runtime_error("not now"); }),
               std::runtime_error);
  EXPECT_EQ(number.peek(), nullptr);
  EXPECT_EQ(number.get([] { return 7; }), 7);
}

TEST(BuiltOnce, IsBuiltOnceForThreadsThatComeTogether) {
  static BuiltOnce<int> number;
  std::atomic<int> built = 0;
  const auto found = fromEightThreads([&] { return &number.get([&] { return ++built; }); });
  EXPECT_EQ(built, 1);
  EXPECT_THAT(found, testing::Each(number.peek()));
}

}  // namespace
