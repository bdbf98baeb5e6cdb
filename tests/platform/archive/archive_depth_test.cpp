#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/single_value.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/refusal.h"
#include "support/memory/leaks_tolerated.h"
#include "support/printers.h"

namespace {

using Any = OVList<OVObject>;
using Uid = ArchiveBuilder::Uid;

constexpr int kDeep = 100000;

TEST(ArchiveDepth, AChainOfAHundredThousandValuesIsWrittenAndRead) {
  OVRef<OVObject> chain = OVString("end");
  for (int i = 0; i < kDeep; ++i) {
    auto value = OVMutableSingleValue::init();
    value->setValue(std::move(chain));
    chain = std::move(value);
  }
  const auto data = archiveOf(chain);
  auto read = unarchived(data);
  EXPECT_TRUE(archiveOf(read)->text() == data->text());
  int depth = 0;
  for (; const auto value = ov::cast<OVSingleValue>(read); ++depth) read = value->value();
  EXPECT_EQ(depth, kDeep);
  EXPECT_EQ(ov::cast<OVString>(read), "end");
}

TEST(ArchiveDepth, AChainOfAHundredThousandListsIsWrittenAndRead) {
  OVRef<OVObject> chain = OVString("end");
  for (int i = 0; i < kDeep; ++i) chain = Any::list({chain});
  const auto data = archiveOf(chain);
  auto read = unarchived(data);
  int depth = 0;
  for (; const auto list = ov::cast<Any>(read); ++depth) read = list[0];
  EXPECT_EQ(depth, kDeep);
  EXPECT_EQ(ov::cast<OVString>(read), "end");
}

/// Objects of one class, each of which `refer` makes from the next.
template <class Refer>
OVRef<OVData> deepArchive(ArchiveBuilder& archive, int depth, const char* className, Refer refer) {
  Uid next = archive.addText("end");
  for (int i = 0; i < depth; ++i) {
    ArchiveBuilder::Fields fields = refer(archive.to(next));
    next = archive.object(className, std::move(fields));
  }
  return archive.archive(next);
}

TEST(ArchiveDepth, AChainOfUnknownObjectsIsReadWrittenAndReleased) {
  ArchiveBuilder archive;
  const auto data = deepArchive(archive, kDeep, "XYUnknown", [](auto next) {
    return ArchiveBuilder::Fields{{"next", next}};
  });
  const auto read = unarchived<OVOpaqueObject>(data);
  ASSERT_NE(read, nullptr);
  const auto again = archiveOf(read);
  EXPECT_TRUE(archiveOf(unarchived(again))->text() == again->text());
}

TEST(ArchiveDepth, AChainThroughSetsIsReadWrittenAndReleased) {
  ArchiveBuilder archive;
  const auto data = deepArchive(archive, kDeep, "NSSet", [&](auto next) {
    return ArchiveBuilder::Fields{{"NS.objects", archive.array({next})}};
  });
  auto read = unarchived<OVOpaqueObject>(data);
  ASSERT_NE(read, nullptr);
  static_cast<void>(archiveOf(read));
  read.reset();
}

TEST(ArchiveDepth, AChainThroughPlainDictionariesAndSetsIsReleased) {
  ArchiveBuilder archive;
  const auto data = deepArchive(archive, kDeep, "XYUnknown", [&](auto next) {
    return ArchiveBuilder::Fields{{"in", archive.fields({{"next", archive.set({next})}})}};
  });
  EXPECT_NE(unarchived<OVOpaqueObject>(data), nullptr);
}

// Neither kind of depth is great, their product would be.
TEST(ArchiveDepth, DeepContainersInsideDeepObjectsAreRead) {
  ArchiveBuilder archive;
  const auto data = deepArchive(archive, 600, "XYUnknown", [&](auto next) {
    for (int i = 0; i < 400; ++i) next = archive.array({next});
    return ArchiveBuilder::Fields{{"deep", next}};
  });
  EXPECT_EQ(refusal(data), "accepted");
}

TEST(ArchiveDepth, AChainOfDictionariesThatAreKeysIsRead) {
  ArchiveBuilder archive;
  Uid next = archive.dictionaryOf("NSDictionary", {}, {});
  const Uid value = archive.addText("value");
  for (int i = 0; i < kDeep; ++i) next = archive.dictionaryOf("NSDictionary", {next}, {value});
  EXPECT_EQ(refusal(archive.archive(next)), "accepted");
}

// Nothing can untie a ring of opaque objects.
TEST(ArchiveDepth, ADictionaryMayBeItsOwnKey) {
  const LeaksTolerated tolerated;
  ArchiveBuilder archive;
  const Uid own = archive.reserve();
  archive.place(own, archive.fields({{"NS.keys", archive.toAll({own})},
                                     {"NS.objects", archive.toAll({own})},
                                     {"$class", archive.to(archive.classNamed("NSDictionary"))}}));
  const auto data = archive.archive(own);
  const auto read = unarchived<OVOpaqueObject>(data);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->className(), "NSDictionary");
}

TEST(ArchiveDepth, TextObjectsMayNotHoldEachOther) {
  const LeaksTolerated tolerated;
  ArchiveBuilder archive;
  const Uid own = archive.reserve();
  archive.place(own,
                archive.fields({{"NS.string", archive.to(own)},
                                {"$class", archive.to(archive.classNamed("NSMutableString"))}}));
  EXPECT_NE(unarchived<OVOpaqueObject>(archive.archive(own)), nullptr);
}

}  // namespace
