#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/archive/plist_builder.h"
#include "support/archive/plist_refusal.h"

using std::string_literals::operator""s;

namespace {

/// ["a", 5], whole.
std::string smallList() {
  PlistBuilder builder;
  const auto a = builder.ascii("a");
  const auto five = builder.integer(5);
  return builder.list(builder.array({a, five}));
}

/// A list of one object with the given bytes.
std::string listOf(const std::string& bytes) {
  PlistBuilder builder;
  builder.raw(bytes);
  return builder.list(0);
}

TEST(PlistGuards, DeclaredCountsAreCheckedAgainstTheBlock) {
  for (const char kind : {'\x4F', '\x5F', '\x6F', '\xAF', '\xCF', '\xDF'}) {
    for (const std::uint64_t count : {0x100ULL, 0x40000000ULL, 0x1000000000000000ULL}) {
      EXPECT_THAT(refusal(listOf(kind + "\x13"s + PlistBuilder::bigEndian(count, 8))),
                  testing::HasSubstr("does not fit"));
    }
  }
}

// Twice the first count is 0, four times the second one too.
TEST(PlistGuards, DoubledLengthsDoNotOverflow) {
  for (const char kind : {'\x6F', '\xDF'}) {
    for (const std::uint64_t count : {0x8000000000000000ULL, 0x4000000000000000ULL}) {
      EXPECT_THAT(refusal(listOf(kind + "\x13"s + PlistBuilder::bigEndian(count, 8))),
                  testing::HasSubstr("does not fit"));
    }
  }
}

TEST(PlistGuards, LengthsPastTheEndAreRefused) {
  for (const std::string& bytes :
       {"\x42"
        "x"s,
        "\x52"
        "x"s,
        "\x62"
        "xyz"s,
        "\xA1"s, "\xC1"s, "\xD1\0"s, "\x11\0"s, "\x14\0\0"s, "\x22\0\0\0"s, "\x33\0"s,
        "\x23\0\0\0\0\0\0\0"s, "\x81\0"s, "\x87\0"s}) {
    EXPECT_THAT(refusal(listOf(bytes)), testing::HasSubstr("does not fit")) << bytes;
  }
}

TEST(PlistGuards, ALengthThatIsNoIntegerOfAtMostEightBytesIsRefused) {
  EXPECT_THAT(refusal(listOf("\x5F\x51"
                             "a")),
              testing::HasSubstr("not an integer"));
  EXPECT_THAT(refusal(listOf("\x5F\x09")), testing::HasSubstr("not an integer"));
  EXPECT_THAT(refusal(listOf("\x5F\x14" + std::string(15, '\0') +
                             "\x01"
                             "a")),
              testing::HasSubstr("not an integer"));
  EXPECT_THAT(refusal(listOf("\x5F")), testing::HasSubstr("not an integer"));
  EXPECT_THAT(refusal(listOf("\x5F\x10")), testing::HasSubstr("cut short"));
  EXPECT_THAT(refusal(listOf("\x5F\x13\0\0\0\0"s)), testing::HasSubstr("cut short"));
}

TEST(PlistGuards, ReferencesPastTheLastObjectAreRefused) {
  for (const std::uint64_t reference : {1U, 2U, 255U}) {
    PlistBuilder builder;
    builder.array({reference});
    EXPECT_THAT(refusal(builder.list(0)), testing::HasSubstr("past the last object"));
  }
}

TEST(PlistGuards, OffsetsOutsideTheObjectsAreRefused) {
  const std::string list = smallList();
  const std::size_t firstOffset = list.size() - 32 - 3;
  for (const std::size_t offset : {std::size_t{0}, std::size_t{7}, firstOffset, firstOffset + 2,
                                   list.size() - 1, std::size_t{255}}) {
    std::string damaged = list;
    damaged[firstOffset] = static_cast<char>(offset);
    EXPECT_THAT(refusal(damaged), testing::HasSubstr("outside the objects")) << offset;
  }
}

// An offset into the middle of another object is legal, and finds what the bytes there say.
TEST(PlistGuards, ObjectsMayOverlap) {
  std::string list = smallList();
  list[list.size() - 32 - 3] = 10;  // "a" now begins where 5 does
  EXPECT_EQ(refusal(list), "accepted");
}

TEST(PlistGuards, AMessageNamesTheObject) {
  PlistBuilder builder;
  builder.null();
  builder.raw("\x77");
  EXPECT_EQ(refusal(builder.list(0)), "property list object 1: an object of unknown kind");
}

}  // namespace
