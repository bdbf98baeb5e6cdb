#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/archive/plist_reader.h"
#include "platform/archive/plist_writer.h"

using ov::detail::PlistReader;
using ov::detail::PlistWriter;
using Number = PlistWriter::Number;

namespace {

constexpr std::size_t kOffsetSizeAt = 26;  // from the end of the list
constexpr std::size_t kReferenceSizeAt = 25;

unsigned byteFromEnd(const OVRef<OVData>& list, std::size_t distance) {
  return static_cast<unsigned>(list->bytes()[list->size() - distance]);
}

struct ObjectCount {
  std::size_t objects;
  unsigned referenceSize;
};

class PlistOfObjects : public testing::TestWithParam<ObjectCount> {};

// 256^size must be greater than the number of objects, or strict readers refuse the list.
TEST_P(PlistOfObjects, TakesTheFewestBytesForItsReferences) {
  const auto [objects, referenceSize] = GetParam();
  PlistWriter writer;
  std::vector<Number> all;
  while (writer.count() < objects - 1) {
    all.push_back(writer.integer(static_cast<std::int64_t>(writer.count() * 3)));
  }
  const auto list = writer.finish(writer.array(all));
  EXPECT_EQ(byteFromEnd(list, kReferenceSizeAt), referenceSize);

  const PlistReader reader(list->bytes());
  ASSERT_EQ(reader.objectCount(), objects);
  const auto array = reader.item(reader.top());
  ASSERT_EQ(array.count, objects - 1);
  for (std::uint64_t i = 0; i < array.count; ++i) {
    const auto element = reader.item(reader.reference(array, i));
    ASSERT_EQ(reader.integer(element).value, static_cast<std::int64_t>(i * 3));
  }
}

INSTANTIATE_TEST_SUITE_P(, PlistOfObjects,
                         testing::Values(ObjectCount{2, 1}, ObjectCount{254, 1},
                                         ObjectCount{255, 1}, ObjectCount{256, 2},
                                         ObjectCount{257, 2}, ObjectCount{65535, 2},
                                         ObjectCount{65536, 4}, ObjectCount{65537, 4}),
                         [](const auto& row) { return std::to_string(row.param.objects); });

struct BodyLength {
  std::size_t tableOffset;
  unsigned offsetSize;
};

class PlistOfLength : public testing::TestWithParam<BodyLength> {};

TEST_P(PlistOfLength, TakesTheFewestBytesForItsOffsets) {
  const auto [tableOffset, offsetSize] = GetParam();
  PlistWriter writer;
  while (writer.count() < tableOffset - 8) writer.boolean(true);
  // The header and one byte for each of the truth values.
  const auto list = writer.finish(0);
  EXPECT_EQ(byteFromEnd(list, kOffsetSizeAt), offsetSize);
  EXPECT_EQ(list->size(), tableOffset + offsetSize * (tableOffset - 8) + 32);
  const PlistReader reader(list->bytes());
  EXPECT_EQ(reader.offset(reader.objectCount() - 1), tableOffset - 1);
}

INSTANTIATE_TEST_SUITE_P(, PlistOfLength,
                         testing::Values(BodyLength{9, 1}, BodyLength{255, 1}, BodyLength{256, 2},
                                         BodyLength{65535, 2}, BodyLength{65536, 4}),
                         [](const auto& row) { return std::to_string(row.param.tableOffset); });

// Lists with lengths of their own are moved together when references turn out narrow.
TEST(PlistBoundaries, LongContainersStayWholeWhenReferencesAreNarrowed) {
  for (const std::size_t length : {14U, 15U, 255U, 256U, 70000U}) {
    PlistWriter writer;
    const Number first = writer.text("first");
    const Number long1 = writer.array(std::vector<Number>(length, first));
    const Number between = writer.text("between");
    const Number long2 =
        writer.dictionary(std::vector<PlistWriter::Entry>(length, {between, long1}));
    const auto list = writer.finish(long2);
    const PlistReader reader(list->bytes());
    std::string storage;
    EXPECT_EQ(reader.text(reader.item(between), storage), "between");
    const auto array = reader.item(long1);
    const auto dictionary = reader.item(long2);
    ASSERT_EQ(array.count, length);
    ASSERT_EQ(dictionary.count, length);
    for (std::uint64_t i = 0; i < length; ++i) {
      ASSERT_EQ(reader.reference(array, i), first);
      ASSERT_EQ(reader.reference(dictionary, i), between);
      ASSERT_EQ(reader.reference(dictionary, length + i), long1);
    }
  }
}

}  // namespace
