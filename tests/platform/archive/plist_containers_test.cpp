#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/plist_reader.h"
#include "support/archive/plist_builder.h"

using ov::detail::PlistItem;
using ov::detail::PlistReader;
using Kind = PlistItem::Kind;

namespace {

using Numbers = std::vector<std::uint64_t>;

Numbers referencesOf(const PlistReader& reader, const PlistItem& container) {
  Numbers numbers;
  const bool isDictionary = container.kind == Kind::dictionary;
  for (std::uint64_t i = 0; i < container.count * (isDictionary ? 2 : 1); ++i) {
    numbers.push_back(reader.reference(container, i));
  }
  return numbers;
}

std::span<const std::byte> bytesOf(const std::string& block) {
  return std::as_bytes(std::span(block));
}

TEST(PlistContainers, ReferToTheirElementsInOrder) {
  PlistBuilder builder;
  const auto a = builder.ascii("a");
  const auto b = builder.ascii("b");
  const auto array = builder.array({b, a, b});
  const auto set = builder.set({a});
  const auto dictionary = builder.dictionary({a, b}, {array, set});
  const std::string block = builder.list(dictionary);
  const PlistReader reader(bytesOf(block));
  EXPECT_EQ(reader.top(), dictionary);
  EXPECT_EQ(reader.objectCount(), 5U);
  EXPECT_EQ(reader.item(array).kind, Kind::array);
  EXPECT_EQ(referencesOf(reader, reader.item(array)), (Numbers{b, a, b}));
  EXPECT_EQ(reader.item(set).kind, Kind::set);
  EXPECT_EQ(referencesOf(reader, reader.item(set)), (Numbers{a}));
  EXPECT_EQ(reader.item(dictionary).kind, Kind::dictionary);
  EXPECT_EQ(referencesOf(reader, reader.item(dictionary)), (Numbers{a, b, array, set}));
}

TEST(PlistContainers, MayBeEmpty) {
  PlistBuilder builder;
  builder.array({});
  builder.set({});
  builder.dictionary({}, {});
  const std::string block = builder.list(0);
  const PlistReader reader(bytesOf(block));
  for (std::uint64_t object = 0; object < 3; ++object) EXPECT_EQ(reader.item(object).count, 0U);
}

class PlistLengths : public testing::TestWithParam<std::size_t> {};

TEST_P(PlistLengths, AreReadAndWrittenForEveryKind) {
  const std::size_t length = GetParam();
  PlistBuilder builder;
  const auto ascii = builder.ascii(std::string(length, 'x'));
  const auto utf16 = builder.utf16(std::u16string(length, u'é'));
  const auto data = builder.bytes(std::string(length, '\xFF'));
  const auto array = builder.array(Numbers(length, ascii));
  const auto dictionary = builder.dictionary(Numbers(length, ascii), Numbers(length, data));
  const std::string block = builder.list(array);
  const PlistReader reader(bytesOf(block));
  std::string storage;
  EXPECT_EQ(reader.text(reader.item(ascii), storage), std::string(length, 'x'));
  EXPECT_EQ(reader.text(reader.item(utf16), storage).size(), 2 * length);
  EXPECT_EQ(reader.data(reader.item(data)).size(), length);
  EXPECT_EQ(referencesOf(reader, reader.item(array)), Numbers(length, ascii));
  EXPECT_EQ(reader.reference(reader.item(dictionary), 2 * length - 1), data);
}

// From 15 on an integer object holds the length, in 1, 2 or 4 bytes.
INSTANTIATE_TEST_SUITE_P(, PlistLengths, testing::Values(1, 14, 15, 16, 255, 256, 65535, 65536),
                         testing::PrintToStringParamName());

TEST(PlistContainers, LengthsMayBeWiderThanNeeded) {
  for (unsigned power = 0; power <= 3; ++power) {
    const unsigned width = 1U << power;
    PlistBuilder builder;
    builder.raw(std::string("\x5F") + static_cast<char>(0x10 + power) +
                PlistBuilder::bigEndian(3, width) + "abc");
    const std::string block = builder.list(0);
    const PlistReader reader(bytesOf(block));
    std::string storage;
    EXPECT_EQ(reader.text(reader.item(0), storage), "abc");
  }
}

TEST(PlistContainers, ObjectsMayBeUnreferencedOrEqualAndTheTopAnywhere) {
  PlistBuilder builder;
  builder.ascii("unreferenced");
  const auto top = builder.array({2, 3});
  builder.ascii("equal");
  builder.ascii("equal");
  builder.uid(1);
  builder.uid(1);
  const std::string block = builder.list(top);
  const PlistReader reader(bytesOf(block));
  std::string storage;
  EXPECT_EQ(reader.text(reader.item(reader.reference(reader.item(reader.top()), 1)), storage),
            "equal");
}

/// Offset size and reference size.
class PlistSizes : public testing::TestWithParam<std::tuple<unsigned, unsigned>> {};

TEST_P(PlistSizes, MakeNoDifference) {
  PlistBuilder builder;
  std::tie(builder.offsetSize, builder.referenceSize) = GetParam();
  const auto key = builder.ascii("key");
  const auto value = builder.integer(-5);
  const auto inner = builder.array({value, key});
  const auto top = builder.dictionary({key}, {inner});
  const std::string block = builder.list(top);
  const PlistReader reader(bytesOf(block));
  EXPECT_EQ(referencesOf(reader, reader.item(reader.top())), (Numbers{key, inner}));
  EXPECT_EQ(referencesOf(reader, reader.item(inner)), (Numbers{value, key}));
  EXPECT_EQ(reader.integer(reader.item(value)).value, -5);
}

INSTANTIATE_TEST_SUITE_P(, PlistSizes,
                         testing::Combine(testing::Range(1U, 9U), testing::Range(1U, 9U)),
                         [](const auto& sizes) {
                           return "Offset" + std::to_string(std::get<0>(sizes.param)) +
                                  "Reference" + std::to_string(std::get<1>(sizes.param));
                         });

}  // namespace
