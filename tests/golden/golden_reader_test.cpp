#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "golden/golden_blocks.h"
#include "platform/archive/class_table.h"
#include "support/archive/archive_listing.h"
#include "support/memory/leaks_tolerated.h"

// Blocks of every version that ever was are read by every version to come.

namespace {

class GoldenBlocks : public testing::TestWithParam<GoldenBlock> {};

TEST_P(GoldenBlocks, AreReadWithTheirContent) {
  const LeaksTolerated tolerated;  // some are rings
  EXPECT_EQ(archiveListing(OVKeyedUnarchiver::unarchiveObjectWithData(GetParam().block)),
            GetParam().content);
}

TEST_P(GoldenBlocks, AreReadWhereNoClassIsKnown) {
  const LeaksTolerated tolerated;
  const auto root = OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(GetParam().block);
  EXPECT_EQ(root == nullptr, GetParam().name == "null");
}

INSTANTIATE_TEST_SUITE_P(Version1, GoldenBlocks, testing::ValuesIn(goldenBlocks(GOLDEN_FOLDER)),
                         [](const auto& test) { return test.param.name; });

TEST(AllGoldenBlocks, HaveAnObjectOfEveryClass) {
  std::string listings;
  for (const GoldenBlock& each : goldenBlocks(GOLDEN_FOLDER)) listings += each.content;
  for (const OVClass* each : ov::libraryClasses()) {
    EXPECT_THAT(listings, testing::HasSubstr(std::string(" : ") + each->name + "\n"));
  }
  for (const char* other :
       {" : OVImage\n", " : date\n", " : list\n", " : immutable list\n", " : dictionary\n",
        " : opaque XYLabel (XYLabel, OVLabel, NSObject)\n"}) {
    EXPECT_THAT(listings, testing::HasSubstr(other));
  }
}

}  // namespace
