#include <functional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/plist_reader.h"
#include "support/plist_builder.h"

using ov::detail::PlistReader;
using std::string_literals::operator""s;

namespace {

// Places in the trailer, from the end of the list.
constexpr std::size_t kOffsetSize = 26;
constexpr std::size_t kReferenceSize = 25;
constexpr std::size_t kObjectCount = 24;
constexpr std::size_t kTop = 16;
constexpr std::size_t kTableOffset = 8;

/// ["a", 5], whole.
std::string smallList() {
  PlistBuilder builder;
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

/// Visits every object of the list; the message of the refusal, or "accepted".
std::string refusal(const std::string& list) {
  try {
    const PlistReader reader(std::as_bytes(std::span(list)));
    std::string storage;
    for (std::uint64_t object = 0; object < reader.objectCount(); ++object) {
      const auto item = reader.item(object);
      if (PlistReader::isText(item)) static_cast<void>(reader.text(item, storage));
      if (item.kind < ov::detail::PlistItem::Kind::array) continue;
      for (std::uint64_t i = 0; i < item.count; ++i) {
        static_cast<void>(reader.reference(item, i));
      }
    }
    return "accepted";
  } catch (const OVInvalidArchive& error) {
    return error.what();
  }
}

/// A list of one object with the given bytes.
std::string listOf(const std::string& bytes) {
  PlistBuilder builder;
  builder.raw(bytes);
  return builder.list(0);
}

TEST(PlistGuards, TheSmallListItselfIsAccepted) { EXPECT_EQ(refusal(smallList()), "accepted"); }

TEST(PlistGuards, HeaderAndTrailerMustBeThere) {
  EXPECT_EQ(refusal(""), "no data");
  EXPECT_EQ(refusal("bplist0"), "not a binary property list");
  EXPECT_EQ(refusal("bplist01" + smallList().substr(8)), "not a binary property list");
  EXPECT_THAT(refusal("bplist00"), testing::HasSubstr("cut short"));
  EXPECT_THAT(refusal("bplist00" + std::string(32, '\0')), testing::HasSubstr("cut short"));
}

// 1: the products of these counts and sizes wrap around to what the block holds.
TEST(PlistGuards, TrailerArithmeticDoesNotOverflow) {
  const std::string list = smallList();
  EXPECT_NE(refusal(withNumber(list, kObjectCount, 0x8000000000000003U)), "accepted");
  EXPECT_NE(refusal(withNumber(withByte(list, kOffsetSize, 8), kObjectCount, 0x2000000000000003U)),
            "accepted");
  EXPECT_NE(refusal(withNumber(list, kTableOffset, 0xFFFFFFFFFFFFFFFFU)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kTableOffset, 0xFFFFFFFFFFFFFFE0U)), "accepted");
}

// 1: the low halves of these fields are what they should be.
TEST(PlistGuards, TrailerFieldsAreReadWhole) {
  const std::string list = smallList();
  const std::uint64_t high = 1ULL << 32;
  EXPECT_NE(refusal(withNumber(list, kObjectCount, high + 3)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kTop, high + 2)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kTableOffset, high + list.size() - 32 - 3)), "accepted");
}

TEST(PlistGuards, TheOffsetTableFillsTheRoomUpToTheTrailer) {
  const std::string list = smallList();
  EXPECT_NE(refusal(withNumber(list, kObjectCount, 2)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kObjectCount, 4)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kObjectCount, 0)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kTableOffset, list.size() - 32)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kTableOffset, 8)), "accepted");
  EXPECT_NE(refusal(withNumber(list, kTableOffset, 0)), "accepted");
  EXPECT_THAT(refusal(withNumber(list, kTop, 3)), testing::HasSubstr("top object"));
}

// 2
TEST(PlistGuards, SizesThatAreNotOneToEightAreRefused) {
  for (const std::size_t size : {kOffsetSize, kReferenceSize}) {
    EXPECT_THAT(refusal(withByte(smallList(), size, 0)), testing::HasSubstr("not 1 to 8"));
    EXPECT_THAT(refusal(withByte(smallList(), size, 9)), testing::HasSubstr("not 1 to 8"));
    EXPECT_THAT(refusal(withByte(smallList(), size, '\xFF')), testing::HasSubstr("not 1 to 8"));
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

// 3
TEST(PlistGuards, DeclaredCountsAreCheckedAgainstTheBlock) {
  for (const char kind : {'\x4F', '\x5F', '\x6F', '\xAF', '\xCF', '\xDF'}) {
    for (const std::uint64_t count : {0x100ULL, 0x40000000ULL, 0x1000000000000000ULL}) {
      EXPECT_THAT(refusal(listOf(kind + "\x13"s + PlistBuilder::bigEndian(count, 8))),
                  testing::HasSubstr("does not fit"));
    }
  }
}

// 4: twice the first count is 0, four times the second one too.
TEST(PlistGuards, DoubledLengthsDoNotOverflow) {
  for (const char kind : {'\x6F', '\xDF'}) {
    for (const std::uint64_t count : {0x8000000000000000ULL, 0x4000000000000000ULL}) {
      EXPECT_THAT(refusal(listOf(kind + "\x13"s + PlistBuilder::bigEndian(count, 8))),
                  testing::HasSubstr("does not fit"));
    }
  }
}

// 4
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

// 5
TEST(PlistGuards, ALengthThatIsNoIntegerOfAtMostEightBytesIsRefused) {
  EXPECT_THAT(refusal(listOf("\x5F\x51"
                             "a")),
              testing::HasSubstr("no integer"));
  EXPECT_THAT(refusal(listOf("\x5F\x09")), testing::HasSubstr("no integer"));
  EXPECT_THAT(refusal(listOf("\x5F\x14" + std::string(15, '\0') +
                             "\x01"
                             "a")),
              testing::HasSubstr("no integer"));
  EXPECT_THAT(refusal(listOf("\x5F")), testing::HasSubstr("no integer"));
  EXPECT_THAT(refusal(listOf("\x5F\x10")), testing::HasSubstr("cut short"));
  EXPECT_THAT(refusal(listOf("\x5F\x13\0\0\0\0"s)), testing::HasSubstr("cut short"));
}

// 6
TEST(PlistGuards, ReferencesPastTheLastObjectAreRefused) {
  for (const std::uint64_t reference : {1U, 2U, 255U}) {
    PlistBuilder builder;
    builder.array({reference});
    EXPECT_THAT(refusal(builder.list(0)), testing::HasSubstr("past the last object"));
  }
}

// 6
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
  EXPECT_EQ(refusal(builder.list(0)), "property list object 1: an unknown kind of object");
}

}  // namespace
