#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/opaque_object.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/refusal.h"

// Blocks that a reader would take hours or terabytes for, were it not careful. The test run's own
// time limit is what fails them.

namespace {

using Uid = ArchiveBuilder::Uid;
using Number = ArchiveBuilder::Number;

constexpr std::size_t kMany = 100000;

/// `depth` lists inside each other, the innermost of which holds `elements`: what they refer to is
/// met at a depth where it has to wait.
Uid buried(ArchiveBuilder& archive, const std::vector<Uid>& elements, int depth) {
  Uid list = archive.arrayOf("NSArray", elements);
  for (int i = 0; i < depth; ++i) list = archive.arrayOf("NSArray", {list});
  return list;
}

/// One object at many UIDs.
std::vector<Uid> copies(ArchiveBuilder& archive, Number object) {
  std::vector<Uid> uids;
  for (std::size_t i = 0; i < kMany; ++i) uids.push_back(archive.add(object));
  return uids;
}

TEST(ArchiveLimits, ManyObjectsWithTheSameManyKeys) {
  ArchiveBuilder archive;
  const Number key = archive.ascii("key");
  std::vector<Number> keys(kMany, key);
  std::vector<Number> values(kMany, archive.to(0));
  keys.push_back(archive.ascii("$class"));
  values.push_back(archive.to(archive.classNamed("OVLabel")));
  const Number huge = archive.dictionary(keys, values);
  EXPECT_THAT(refusal(archive.archive(buried(archive, copies(archive, huge), 600))),
              testing::HasSubstr("more memory"));
}

TEST(ArchiveLimits, ManyDictionariesWithTheSameManyKeys) {
  ArchiveBuilder archive;
  const Uid text = archive.addText("text");
  const Number all = archive.array(std::vector<Number>(kMany, archive.to(text)));
  const Number dictionary =
      archive.fields({{"NS.keys", all},
                      {"NS.objects", all},
                      {"$class", archive.to(archive.classNamed("NSDictionary"))}});
  EXPECT_THAT(refusal(archive.archive(buried(archive, copies(archive, dictionary), 600))),
              testing::HasSubstr("more memory"));
}

TEST(ArchiveLimits, ManyKeysThatAreTheSameLongText) {
  ArchiveBuilder archive;
  const std::u16string text(kMany * 2, u'k');
  std::vector<Number> keys;
  for (int i = 0; i < 2000; ++i) keys.push_back(archive.utf16(text.substr(0, 10)));
  const Number longKey = archive.utf16(text);
  keys.insert(keys.end(), kMany, longKey);
  const Number values = archive.null();
  const Number object = archive.dictionary(keys, std::vector<Number>(keys.size(), values));
  EXPECT_NE(refusal(archive.archive(archive.add(object))), "accepted");
  const Number top = archive.dictionary(keys, std::vector<Number>(keys.size(), values));
  EXPECT_THAT(refusal(archive.archiveWithTop(top)), testing::HasSubstr("more memory"));
}

TEST(ArchiveLimits, ManyDictionariesWithTheSameLongKey) {
  ArchiveBuilder archive;
  std::vector<Uid> keys{archive.addText(std::string(500000, 'k'))};
  for (const char* each : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
    keys.push_back(archive.addText(each));
  }
  const Number all = archive.toAll(keys);
  const Number dictionary =
      archive.fields({{"NS.keys", all},
                      {"NS.objects", all},
                      {"$class", archive.to(archive.classNamed("NSDictionary"))}});
  EXPECT_THAT(refusal(archive.archive(archive.arrayOf("NSArray", copies(archive, dictionary)))),
              testing::HasSubstr("more memory"));
}

TEST(ArchiveLimits, ManyObjectsThatHoldTheSameLongList) {
  ArchiveBuilder archive;
  const Number elements = archive.array(std::vector<Number>(kMany, archive.to(0)));
  const Number list = archive.fields(
      {{"NS.objects", elements}, {"$class", archive.to(archive.classNamed("NSArray"))}});
  EXPECT_THAT(refusal(archive.archive(archive.arrayOf("NSArray", copies(archive, list)))),
              testing::HasSubstr("more memory"));
}

TEST(ArchiveLimits, ManyClassesWithTheSameManyNames) {
  ArchiveBuilder archive;
  const Number names = archive.array(std::vector<Number>(kMany, archive.ascii("XY")));
  const Number record = archive.fields({{"$classname", archive.ascii("XY")}, {"$classes", names}});
  std::vector<Uid> objects;
  for (const Uid each : copies(archive, record)) {
    objects.push_back(archive.add(archive.fields({{"$class", archive.to(each)}})));
  }
  EXPECT_THAT(refusal(archive.archive(archive.arrayOf("NSArray", objects))),
              testing::HasSubstr("more memory"));
}

/// Holds bytes inside itself.
class Parcel : public OVObject {
 public:
  explicit Parcel(const std::vector<std::byte>& bytes) : bytes_(bytes) {}
  const OVClass* classForCoder() const override {
    static constexpr OVClass record{"Parcel", nullptr, nullptr};
    return &record;
  }
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    coder.encodeBytesForKey(bytes_, "bytes");
  }

 private:
  const std::vector<std::byte>& bytes_;
};

// What is honest must not be taken for a bomb.
TEST(ArchiveLimits, ManyUnknownObjectsWithTheSameBytesAreRead) {
  const std::vector<std::byte> bytes(50000, std::byte{1});
  const auto list = OVList<OVObject>::list();
  for (int i = 0; i < 2000; ++i) list.push_back(std::make_shared<Parcel>(bytes));
  const auto data = archiveOf(list);
  EXPECT_LT(data->size(), 200000U);
  const auto read = unarchived<OVList<OVOpaqueObject>>(data);
  ASSERT_EQ(read.size(), 2000U);
  const auto bytesOf = [&](std::size_t i) {
    return std::get<OVOpaqueValue::Inline>(read[i]->fields()[0].value.content).object;
  };
  EXPECT_EQ(bytesOf(0), bytesOf(1999));
  EXPECT_TRUE(archiveOf(read)->text() == data->text());
}

}  // namespace
