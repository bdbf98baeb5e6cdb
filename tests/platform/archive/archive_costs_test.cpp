#include <cstdint>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/label.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/refusal.h"

// Small blocks that would be read, or written again, for minutes or hours by a careless library.
// The test run's own time limit is what fails them.

namespace {

using Uid = ArchiveBuilder::Uid;
using Number = ArchiveBuilder::Number;
using testing::HasSubstr;

constexpr std::size_t kLong = 1000000;

/// A list of many objects that are one item of the property list.
OVRef<OVData> listOf(ArchiveBuilder& archive, std::size_t many, Number item) {
  std::vector<Uid> uids;
  for (std::size_t i = 0; i < many; ++i) uids.push_back(archive.add(item));
  return archive.archive(archive.arrayOf("NSArray", uids));
}

/// Texts of 16 bytes that the standard library of g++ gives one hash, found by running its function
/// backwards.
std::vector<std::string> collidingTexts(std::size_t many) {
  constexpr std::uint64_t kFactor = 0xC6A4A7935BD1E995;
  std::uint64_t inverse = kFactor;
  for (int i = 0; i < 6; ++i) inverse *= 2 - kFactor * inverse;
  const auto mixed = [](std::uint64_t word, std::uint64_t factor) {
    word *= factor;
    return (word ^ word >> 47) * factor;
  };
  const std::uint64_t seed = 0xC70F6907 ^ 16 * kFactor;
  std::mt19937_64 random(1);  // NOLINT(cert-msc51-cpp): the same texts every time
  std::vector<std::string> texts;
  while (texts.size() < many) {
    std::uint64_t words[] = {0x6161616161616161 + (random() & 0x0F0F0F0F0F0F0F0F), 0};
    words[1] = mixed((seed ^ mixed(words[0], kFactor)) * kFactor ^ 0x123456789ABCDEF, inverse);
    if ((words[1] & 0x8080808080808080) != 0) continue;
    texts.emplace_back(reinterpret_cast<const char*>(words), sizeof words);
  }
  return texts;
}

TEST(ArchiveCosts, ManyUnknownObjectsOfAClassWithLongNamesAreWritten) {
  ArchiveBuilder archive;
  const Number names =
      archive.array(std::vector<Number>(12, archive.ascii(std::string(kLong, 'x'))));
  const Uid record =
      archive.add(archive.fields({{"$classname", archive.ascii("XY")}, {"$classes", names}}));
  const auto block = listOf(archive, 80000, archive.fields({{"$class", archive.to(record)}}));
  EXPECT_LT(passedThrough(block)->size(), 3 * block->size());
}

TEST(ArchiveCosts, ALongValueThatAnUnknownObjectHoldsManyTimesIsWrittenOnce) {
  ArchiveBuilder archive;
  const std::vector<Number> values(800000, archive.bytes(std::string(3 * kLong, 'x')));
  const auto block = archive.archive(archive.object("XY", {{"k", archive.array(values)}}));
  EXPECT_LT(passedThrough(block)->size(), block->size() + 1000);
}

TEST(ArchiveCosts, ClassesWithNamesThatCollideAreWritten) {
  ArchiveBuilder archive;
  std::vector<Uid> objects;
  const std::vector<std::string> texts = collidingTexts(150000);
#if defined(__GLIBCXX__) && defined(__x86_64__)
  ASSERT_EQ(std::hash<std::string>()(texts.front()), std::hash<std::string>()(texts.back()));
#endif
  for (const std::string& name : texts) {
    const Uid record = archive.add(archive.fields({{"$classname", archive.ascii(name)}}));
    objects.push_back(archive.add(archive.fields({{"$class", archive.to(record)}})));
  }
  const auto block = archive.archive(archive.arrayOf("NSArray", objects));
  EXPECT_LT(passedThrough(block)->size(), 2 * block->size());
}

TEST(ArchiveCosts, KeysThatCollideAreReadAndFound) {
  ArchiveBuilder archive;
  std::vector<Uid> keys;
  const std::vector<std::string> texts = collidingTexts(50000);
  for (const std::string& text : texts) keys.push_back(archive.addText(text));
  const Uid dictionary = archive.dictionaryOf("NSDictionary", keys, keys);
  const auto read = unarchived<OVDictionary<OVString>>(archive.archive(dictionary));
  EXPECT_EQ(read.size(), std::set<std::string>(texts.begin(), texts.end()).size());
  for (const auto& [key, value] : read) ASSERT_EQ(read[key], value);
}

class ArchiveCostsOfAText : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(ArchiveCostsOfAText, ManyObjectsThatLookThroughOneLongTextAreRefused) {
  const auto [className, key] = GetParam();
  ArchiveBuilder archive;
  const Number text = archive.to(archive.addText(std::string(50000, '1')));
  const Number type = archive.to(archive.classNamed(className));
  const auto block = listOf(archive, 10000, archive.fields({{key, text}, {"$class", type}}));
  EXPECT_THAT(refusal(block), HasSubstr("more memory"));
}

// What is honest must not be taken for that.
TEST(ArchiveCosts, ManyLabelsMayShareAnExceptionallyLongName) {
  const OVString name(std::string(100000, 'x'));
  const auto labels = OVList<OVLabel>::list();
  for (int i = 0; i < 5000; ++i) {
    labels.push_back(OVLabel::init());
    labels.back()->setName(name);
  }
  EXPECT_EQ(unarchived<OVList<OVLabel>>(archiveOf(labels)).back()->name(), name);
}

INSTANTIATE_TEST_SUITE_P(, ArchiveCostsOfAText,
                         testing::Values(std::pair("OVObjectPhone", "phoneNumber"),
                                         std::pair("OVObjectEmail", "email"),
                                         std::pair("OVObjectInstantMessage", "serverName")));

}  // namespace
