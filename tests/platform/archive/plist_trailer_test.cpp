#include <cstdint>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/archive/plist_builder.h"
#include "support/archive/plist_refusal.h"

using std::string_literals::operator""s;

namespace {

// Places in the trailer, from the end of the list.
constexpr std::size_t kOffsetSize = 26;
constexpr std::size_t kReferenceSize = 25;
constexpr std::size_t kObjectCount = 24;
constexpr std::size_t kTop = 16;
constexpr std::size_t kTableOffset = 8;

/// ["a", 5], whole.
std::string listOfOne(unsigned offsetSize = 1) {
  PlistBuilder builder;
  builder.offsetSize = offsetSize;
  const auto a = builder.ascii("a");
  const auto five = builder.integer(5);
  return builder.list(builder.array({a, five}));
}

std::string withByte(std::string list, std::size_t fromEnd, char byte) {
  list[list.size() - fromEnd] = byte;
  return list;
}

std::string withNumber(std::string list, std::size_t fromEnd, std::uint64_t number) {
  return list.replace(list.size() - fromEnd, 8, PlistBuilder::bigEndian(number, 8));
}

TEST(PlistGuards, TheSmallListItselfIsAccepted) { EXPECT_EQ(refusal(listOfOne()), "accepted"); }

TEST(PlistGuards, HeaderAndTrailerMustBeThere) {
  EXPECT_EQ(refusal(""), "no data");
  EXPECT_EQ(refusal("bplist0"), "not a binary property list");
  EXPECT_EQ(refusal("bplist01" + listOfOne().substr(8)), "not a binary property list");
  EXPECT_THAT(refusal("bplist00"), testing::HasSubstr("cut short"));
  EXPECT_THAT(refusal("bplist00" + std::string(32, '\0')), testing::HasSubstr("cut short"));
}

// The products of these counts and sizes wrap around to what the block holds.
TEST(PlistGuards, TrailerArithmeticDoesNotOverflow) {
  for (const unsigned size : {2U, 4U, 8U}) {
    const std::uint64_t wrapping = (~std::uint64_t{0} / size + 1) + 3;
    EXPECT_THAT(refusal(withNumber(listOfOne(size), kObjectCount, wrapping)),
                testing::HasSubstr("does not fill"));
  }
  const std::string list = listOfOne();
  for (const std::uint64_t offset :
       {0xFFFFFFFFFFFFFFFFU, 0xFFFFFFFFFFFFFFE0U, 0x8000000000000000U}) {
    EXPECT_THAT(refusal(withNumber(list, kTableOffset, offset)),
                testing::HasSubstr("outside the block"));
  }
}

// The low halves of these fields are what they should be.
TEST(PlistGuards, TrailerFieldsAreReadWhole) {
  const std::string list = listOfOne();
  const std::uint64_t high = 1ULL << 32;
  EXPECT_THAT(refusal(withNumber(list, kObjectCount, high + 3)),
              testing::HasSubstr("does not fill"));
  EXPECT_THAT(refusal(withNumber(list, kTop, high + 2)), testing::HasSubstr("top object"));
  EXPECT_THAT(refusal(withNumber(list, kTableOffset, high + list.size() - 32 - 3)),
              testing::HasSubstr("outside the block"));
}

TEST(PlistGuards, TheOffsetTableFillsTheRoomUpToTheTrailer) {
  const std::string list = listOfOne();
  for (const std::uint64_t count : {0U, 2U, 4U}) {
    EXPECT_THAT(refusal(withNumber(list, kObjectCount, count)),
                testing::HasSubstr("does not fill"));
  }
  for (const std::uint64_t offset : {std::size_t{0}, std::size_t{8}, list.size() - 32}) {
    EXPECT_THAT(refusal(withNumber(list, kTableOffset, offset)),
                testing::HasSubstr("outside the block"));
  }
  EXPECT_THAT(refusal(withNumber(list, kTop, 3)), testing::HasSubstr("top object"));
}

TEST(PlistGuards, SizesThatAreNotOneToEightAreRefused) {
  for (const std::size_t size : {kOffsetSize, kReferenceSize}) {
    EXPECT_THAT(refusal(withByte(listOfOne(), size, 0)), testing::HasSubstr("not 1 to 8"));
    EXPECT_THAT(refusal(withByte(listOfOne(), size, 9)), testing::HasSubstr("not 1 to 8"));
    EXPECT_THAT(refusal(withByte(listOfOne(), size, '\xFF')), testing::HasSubstr("not 1 to 8"));
  }
}

TEST(PlistGuards, SizesTooSmallForTheListAreRefused) {
  PlistBuilder narrowReferences;
  while (narrowReferences.count() < 256) narrowReferences.null();
  narrowReferences.referenceSize = 1;
  EXPECT_THAT(refusal(narrowReferences.list(0)), testing::HasSubstr("too small"));
  PlistBuilder narrowOffsets;
  narrowOffsets.ascii(std::string(300, 'x'));
  narrowOffsets.offsetSize = 1;
  EXPECT_THAT(refusal(narrowOffsets.list(0)), testing::HasSubstr("too small"));
}

}  // namespace
