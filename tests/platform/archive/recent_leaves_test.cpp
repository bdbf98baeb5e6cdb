#include "platform/archive/recent_leaves.h"

#include <string>

#include <gtest/gtest.h>

using ov::detail::PlistWriter;
using ov::detail::RecentLeaves;

namespace {

class RecentLeavesOf : public testing::Test {
 protected:
  RecentLeaves::Result text(std::string_view text) { return leaves_.add(plist_.text(text)); }

  PlistWriter plist_;
  RecentLeaves leaves_{plist_};
};

TEST_F(RecentLeavesOf, AnEqualTextIsTheEarlierOne) {
  const auto first = text("equal");
  EXPECT_TRUE(first.isNew);
  EXPECT_TRUE(text("other").isNew);
  const auto again = text("equal");
  EXPECT_FALSE(again.isNew);
  EXPECT_EQ(again.object, first.object);
  EXPECT_EQ(plist_.count(), 2U);
}

TEST_F(RecentLeavesOf, WhatBeginsAlikeDiffers) {
  for (const std::size_t length : {0U, 1U, 14U, 15U, 300U}) {
    EXPECT_TRUE(text(std::string(length, 'x')).isNew) << length;
  }
  EXPECT_TRUE(leaves_.add(plist_.data({})).isNew);
}

TEST_F(RecentLeavesOf, ThousandsOfOthersMayComeBetween) {
  constexpr int kMany = 4000;
  for (int i = 0; i < kMany; ++i) text(std::to_string(i));
  int lost = 0;
  for (int i = 0; i < kMany; ++i) lost += text(std::to_string(i)).isNew ? 1 : 0;
  EXPECT_LT(lost, kMany / 50);
}

TEST_F(RecentLeavesOf, AMillionOthersMayNot) {
  text("first");
  for (int i = 0; i < 1'000'000; ++i) text(std::to_string(i));
  EXPECT_TRUE(text("first").isNew);
}

}  // namespace
