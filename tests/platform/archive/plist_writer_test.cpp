#include "platform/archive/plist_writer.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/archive/plist_builder.h"

using ov::detail::PlistWriter;
using Number = PlistWriter::Number;
using std::string_literals::operator""s;

namespace {

/// The bytes of the one object that `write` writes.
template <class Write>
std::string written(Write write) {
  PlistWriter writer;
  write(writer);
  const auto bytes = writer.lastBytes();
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string integer(std::int64_t value) {
  return written([&](PlistWriter& writer) { return writer.integer(value); });
}

std::string natural(std::uint64_t value) {
  return written([&](PlistWriter& writer) { return writer.unsignedInteger(value); });
}

std::string text(std::string_view value) {
  return written([&](PlistWriter& writer) { return writer.text(value); });
}

std::string uid(std::uint32_t value) {
  return written([&](PlistWriter& writer) { return writer.uid(value); });
}

TEST(PlistWriter, WritesNullAndTruthValues) {
  EXPECT_EQ(written([](PlistWriter& writer) { return writer.null(); }), "\0"s);
  EXPECT_EQ(written([](PlistWriter& writer) { return writer.boolean(false); }), "\x08");
  EXPECT_EQ(written([](PlistWriter& writer) { return writer.boolean(true); }), "\x09");
}

TEST(PlistWriter, WritesIntegersInTheFewestBytes) {
  EXPECT_EQ(integer(0), "\x10\0"s);
  EXPECT_EQ(integer(255), "\x10\xFF");
  EXPECT_EQ(integer(256), "\x11\x01\0"s);
  EXPECT_EQ(integer(65535), "\x11\xFF\xFF");
  EXPECT_EQ(integer(65536), "\x12\0\x01\0\0"s);
  EXPECT_EQ(integer(4294967295), "\x12\xFF\xFF\xFF\xFF");
  EXPECT_EQ(integer(4294967296), "\x13\0\0\0\x01\0\0\0\0"s);
  EXPECT_EQ(integer(std::numeric_limits<std::int64_t>::max()),
            "\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
}

TEST(PlistWriter, WritesEveryNegativeIntegerInEightBytes) {
  EXPECT_EQ(integer(-1), "\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  EXPECT_EQ(integer(std::numeric_limits<std::int64_t>::min()), "\x13\x80\0\0\0\0\0\0\0"s);
}

TEST(PlistWriter, WritesIntegersAboveTheSignedRangeInSixteenBytes) {
  EXPECT_EQ(natural(9223372036854775807U), "\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  EXPECT_EQ(natural(9223372036854775808U), "\x14\0\0\0\0\0\0\0\0\x80\0\0\0\0\0\0\0"s);
  EXPECT_EQ(natural(18446744073709551615U),
            "\x14\0\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s);
}

TEST(PlistWriter, WritesRealsAndDatesInEightBytes) {
  EXPECT_EQ(written([](PlistWriter& writer) { return writer.real(-0.1); }),
            "\x23\xBF\xB9\x99\x99\x99\x99\x99\x9A");
  EXPECT_EQ(written([](PlistWriter& writer) { return writer.date(-978307200); }),
            "\x33\xC1\xCD\x27\xE4\x40\0\0\0"s);
}

TEST(PlistWriter, WritesData) {
  const std::vector<std::byte> bytes(15, std::byte{7});
  EXPECT_EQ(written([&](PlistWriter& writer) { return writer.data(bytes); }),
            "\x4F\x10\x0F" + std::string(15, '\x07'));
  EXPECT_EQ(written([](PlistWriter& writer) { return writer.data({}); }), "\x40");
}

TEST(PlistWriter, WritesPlainTextsAsTheyAre) {
  EXPECT_EQ(text(""), "\x50");
  EXPECT_EQ(text("a\0\x7F"s),
            "\x53"
            "a\0\x7F"s);
  EXPECT_EQ(text(std::string(14, 'x')), "\x5E" + std::string(14, 'x'));
  EXPECT_EQ(text(std::string(15, 'x')), "\x5F\x10\x0F" + std::string(15, 'x'));
  EXPECT_EQ(text(std::string(256, 'x')), "\x5F\x11\x01\0"s + std::string(256, 'x'));
  EXPECT_EQ(text(std::string(65536, 'x')), "\x5F\x12\0\x01\0\0"s + std::string(65536, 'x'));
}

TEST(PlistWriter, WritesOtherTextsAsUtf16AndCountsItsUnits) {
  EXPECT_EQ(text("é"), "\x61\0\xE9"s);
  EXPECT_EQ(text("a€"), "\x62\0a\x20\xAC"s);
  EXPECT_EQ(text("😀"), "\x62\xD8\x3D\xDE\0"s);
  EXPECT_EQ(text("\U0010FFFF\uFFFF"), "\x63\xDB\xFF\xDF\xFF\xFF\xFF");
  EXPECT_EQ(text("éééééééé😀😀😀😀").substr(0, 3), "\x6F\x10\x10");
}

TEST(PlistWriter, WritesUidsOfOneTwoOrFourBytes) {
  EXPECT_EQ(uid(0), "\x80\0"s);
  EXPECT_EQ(uid(255), "\x80\xFF");
  EXPECT_EQ(uid(256), "\x81\x01\0"s);
  EXPECT_EQ(uid(65535), "\x81\xFF\xFF");
  EXPECT_EQ(uid(65536), "\x83\0\x01\0\0"s);
  EXPECT_EQ(uid(4294967295), "\x83\xFF\xFF\xFF\xFF");
}

std::string finished(PlistWriter& writer, Number top) {
  return std::string(writer.finish(top)->text());
}

TEST(PlistWriter, WritesAWholeList) {
  PlistWriter writer;
  const Number a = writer.text("a");
  const Number five = writer.integer(5);
  const Number array = writer.array(std::vector{five, a});
  const Number set = writer.set(std::vector{a});
  const Number top = writer.dictionary(std::vector<PlistWriter::Entry>{{a, array}});
  static_cast<void>(set);
  EXPECT_EQ(finished(writer, top),
            "bplist00"
            "\x51"
            "a"
            "\x10\x05"
            "\xA2\x01\x00"
            "\xC1\x00"
            "\xD1\x00\x02"
            "\x08\x0A\x0C\x0F\x11"
            "\0\0\0\0\0\0\x01\x01"
            "\0\0\0\0\0\0\0\x05"
            "\0\0\0\0\0\0\0\x04"
            "\0\0\0\0\0\0\0\x14"s);
}

TEST(PlistWriter, TakesTheLastObjectBack) {
  PlistWriter writer;
  const Number kept = writer.text("kept");
  writer.text("taken back");
  writer.removeLast();
  EXPECT_EQ(writer.count(), 1U);
  PlistBuilder builder;
  builder.ascii("kept");
  EXPECT_EQ(finished(writer, kept), builder.list(0));
}

TEST(PlistWriter, AgreesWithBytesMadeByHand) {
  for (const std::size_t length : {0U, 1U, 14U, 15U, 300U}) {
    PlistWriter writer;
    const Number text = writer.text(std::string(length, 'x'));
    const Number array = writer.array(std::vector<Number>(length, text));
    writer.dictionary(std::vector<PlistWriter::Entry>(length, {text, array}));
    PlistBuilder builder;
    builder.ascii(std::string(length, 'x'));
    builder.array(std::vector<std::uint64_t>(length, text));
    builder.dictionary(std::vector<std::uint64_t>(length, text),
                       std::vector<std::uint64_t>(length, array));
    EXPECT_EQ(finished(writer, array), builder.list(array)) << length;
  }
}

}  // namespace
