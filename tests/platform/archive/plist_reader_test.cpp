#include "platform/archive/plist_reader.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "support/archive/plist_builder.h"

using ov::detail::PlistItem;
using ov::detail::PlistReader;
using Kind = PlistItem::Kind;
using std::string_literals::operator""s;

namespace {

/// A list whose only object has the given bytes.
class OneObject {
 public:
  explicit OneObject(const std::string& bytes) : block_(blockOf(bytes)) {}

  PlistItem item() const { return reader_.item(0); }
  const PlistReader& reader() const { return reader_; }
  std::string text() const {
    std::string storage;
    return std::string(reader_.text(item(), storage));
  }
  std::int64_t integer() const {
    EXPECT_EQ(item().kind, Kind::integer);
    EXPECT_FALSE(reader_.integer(item()).isUnsigned);
    return reader_.integer(item()).value;
  }

 private:
  static std::string blockOf(const std::string& bytes) {
    PlistBuilder builder;
    builder.raw(bytes);
    return builder.list(0);
  }

  std::string block_;
  PlistReader reader_{std::as_bytes(std::span(block_))};
};

TEST(PlistReader, ReadsNullAndTruthValues) {
  EXPECT_EQ(OneObject("\x00"s).item().kind, Kind::null);
  const OneObject yes("\x09");
  EXPECT_EQ(yes.item().kind, Kind::boolean);
  EXPECT_TRUE(yes.reader().boolean(yes.item()));
  const OneObject no("\x08");
  EXPECT_EQ(no.item().kind, Kind::boolean);
  EXPECT_FALSE(no.reader().boolean(no.item()));
}

TEST(PlistReader, IntegersOfOneTwoAndFourBytesAreUnsigned) {
  EXPECT_EQ(OneObject("\x10\x00"s).integer(), 0);
  EXPECT_EQ(OneObject("\x10\xFF").integer(), 255);
  EXPECT_EQ(OneObject("\x11\xFF\xFF").integer(), 65535);
  EXPECT_EQ(OneObject("\x12\xFF\xFF\xFF\xFF").integer(), 4294967295);
}

TEST(PlistReader, IntegersOfEightBytesAreSigned) {
  EXPECT_EQ(OneObject("\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF").integer(), -1);
  EXPECT_EQ(OneObject("\x13\x80\0\0\0\0\0\0\0"s).integer(),
            std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(OneObject("\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF").integer(),
            std::numeric_limits<std::int64_t>::max());
}

TEST(PlistReader, IntegersMayBeWiderThanNeeded) {
  EXPECT_EQ(OneObject("\x11\0\x05"s).integer(), 5);
  EXPECT_EQ(OneObject("\x12\0\0\0\x05"s).integer(), 5);
  EXPECT_EQ(OneObject("\x13\0\0\0\0\0\0\0\x05"s).integer(), 5);
  EXPECT_EQ(OneObject("\x14"s + std::string(15, '\0') + '\x05').integer(), 5);
  EXPECT_EQ(OneObject("\x14"s + std::string(16, '\xFF')).integer(), -1);
}

TEST(PlistReader, IntegersOfSixteenBytesReachAboveTheSignedRange) {
  const OneObject past("\x14"s + std::string(8, '\0') + '\x80' + std::string(7, '\0'));
  EXPECT_TRUE(past.reader().integer(past.item()).isUnsigned);
  EXPECT_EQ(past.reader().integer(past.item()).value, std::numeric_limits<std::int64_t>::min());
  const OneObject largest("\x14"s + std::string(8, '\0') + std::string(8, '\xFF'));
  EXPECT_TRUE(largest.reader().integer(largest.item()).isUnsigned);
  EXPECT_EQ(largest.reader().integer(largest.item()).value, -1);
}

TEST(PlistReader, RefusesIntegersThatSixtyFourBitsCannotHold) {
  const OneObject large("\x14"s + std::string(7, '\0') + '\x01' + std::string(8, '\0'));
  EXPECT_THROW(static_cast<void>(large.integer()), OVInvalidArchive);
  const OneObject small("\x14"s + std::string(8, '\xFF') + '\x7F' + std::string(7, '\xFF'));
  EXPECT_THROW(static_cast<void>(small.integer()), OVInvalidArchive);
}

TEST(PlistReader, ReadsRealsOfBothWidths) {
  const OneObject narrow("\x22\x3F\xC0\0\0"s);
  EXPECT_EQ(narrow.item().kind, Kind::real);
  EXPECT_EQ(narrow.reader().real(narrow.item()), 1.5);
  const OneObject wide("\x23\xBF\xB9\x99\x99\x99\x99\x99\x9A");
  EXPECT_EQ(wide.reader().real(wide.item()), -0.1);
  const OneObject none("\x23\x7F\xF8\0\0\0\0\0\0"s);
  EXPECT_TRUE(std::isnan(none.reader().real(none.item())));
}

TEST(PlistReader, ReadsDates) {
  const OneObject date("\x33\xC1\xCD\x27\xE4\x40\0\0\0"s);
  EXPECT_EQ(date.item().kind, Kind::date);
  EXPECT_EQ(date.reader().real(date.item()), -978307200);
}

TEST(PlistReader, ReadsData) {
  const OneObject data("\x43\x01\0\xFF"s);
  EXPECT_EQ(data.item().kind, Kind::data);
  const auto bytes = data.reader().data(data.item());
  ASSERT_EQ(bytes.size(), 3U);
  EXPECT_EQ(bytes[2], std::byte{0xFF});
  EXPECT_EQ(OneObject("\x40").reader().data(OneObject("\x40").item()).size(), 0U);
}

TEST(PlistReader, ReadsPlainTexts) {
  EXPECT_EQ(OneObject("\x50").text(), "");
  EXPECT_EQ(OneObject("\x53"
                      "a\0z"s)
                .text(),
            "a\0z"s);
  EXPECT_EQ(OneObject("\x5F\x10\x0F"
                      "fifteen letters")
                .text(),
            "fifteen letters");
  EXPECT_THROW(static_cast<void>(OneObject("\x52"
                                           "a\x80")
                                     .text()),
               OVInvalidArchive);
}

TEST(PlistReader, ReadsUtf16Texts) {
  EXPECT_EQ(OneObject("\x60").text(), "");
  EXPECT_EQ(OneObject("\x61\0\xE9"s).text(), "é");
  EXPECT_EQ(OneObject("\x61\x20\xAC").text(), "€");
  EXPECT_EQ(OneObject("\x62\xD8\x3D\xDE\x00"s).text(), "😀");
  EXPECT_EQ(OneObject("\x63\0a\xDB\xFF\xDF\xFF"s).text(), "a\U0010FFFF");
  EXPECT_EQ(OneObject("\x62\xD8\0\xDC\0"s).text(), "\U00010000");
}

TEST(PlistReader, LoneSurrogatesBecomeTheReplacement) {
  EXPECT_EQ(OneObject("\x61\xD8\x3D").text(), "\uFFFD");
  EXPECT_EQ(OneObject("\x61\xDE\x00"s).text(), "\uFFFD");
  EXPECT_EQ(OneObject("\x62\xD8\x3D\0a"s).text(), "\uFFFDa");
  EXPECT_EQ(OneObject("\x62\xDE\x00\xD8\x3D"s).text(), "\uFFFD\uFFFD");
  EXPECT_EQ(OneObject("\x63\xD8\x3D\xD8\x3D\xDE\x00"s).text(), "\uFFFD😀");
}

TEST(PlistReader, NeighboursOfTheSurrogatesAreTheirOwnCharacters) {
  EXPECT_EQ(OneObject("\x61\xD7\xFF").text(), "\uD7FF");
  EXPECT_EQ(OneObject("\x61\xE0\x00"s).text(), "\uE000");
  EXPECT_EQ(OneObject("\x62\xD8\x3D\xE0\x00"s).text(), "\uFFFD\uE000");
  EXPECT_EQ(OneObject("\x62\xD7\xFF\xDC\x00"s).text(), "\uD7FF\uFFFD");
  EXPECT_EQ(OneObject("\x62\xDB\xFF\xDB\xFF").text(), "\uFFFD\uFFFD");
}

TEST(PlistReader, ReadsUidsOfOneToEightBytes) {
  for (unsigned width = 1; width <= 8; ++width) {
    const std::string bytes = std::string("\x01\x23\x45\x67\x89\xAB\xCD\xEF").substr(0, width);
    const OneObject uid(static_cast<char>(0x80 + width - 1) + bytes);
    EXPECT_EQ(uid.item().kind, Kind::uid);
    EXPECT_EQ(uid.reader().uid(uid.item()), 0x0123456789ABCDEFU >> (8 * (8 - width)));
  }
}

TEST(PlistReader, RefusesEveryUnknownKind) {
  int known = 0;
  for (unsigned first = 0; first < 256; ++first) {
    try {
      static_cast<void>(OneObject(static_cast<char>(first) + std::string(40, '\x10')).item());
      ++known;
    } catch (const OVInvalidArchive&) {
      const bool isFill = first > 0 && first < 8;
      EXPECT_TRUE(isFill || first == 0x0F || first > 9) << first;
    }
  }
  // Null, false, true; 5 widths of integers, 2 of reals, 1 of dates, 8 of UIDs; 16 lengths of data,
  // plain text, UTF-16, arrays, sets and dictionaries, whose count of 15 takes a length object.
  EXPECT_EQ(known, 3 + 5 + 2 + 1 + 8 + 6 * 16);
}

}  // namespace
