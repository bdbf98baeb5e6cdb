#include <memory>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "platform/archive/class_table.h"
#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/printers.h"

namespace {

class Registered : public OVObject {
 public:
  void initWithCoder(OVKeyedUnarchiver& coder) override { number = coder.decodeIntegerForKey("n"); }
  std::int64_t number = 0;
};

OVRef<OVObject> makeRegistered() { return std::make_shared<Registered>(); }

std::string refusalOf(const OVClass& hostClass) {
  try {
    OVKeyedUnarchiver::registerClass(hostClass);
    return "accepted";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

/// An archive of one object of the class, with a field "n".
OVRef<OVData> archiveWithClass(const char* name) {
  ArchiveBuilder archive;
  return archive.archive(archive.object(name, {{"n", archive.integer(5)}}));
}

TEST(ArchiveClasses, AHostsClassIsBuiltOnceItIsRegistered) {
  static constexpr OVClass hostClass{"HostLate", nullptr, &makeRegistered};
  const auto data = archiveWithClass("HostLate");
  EXPECT_NE(unarchived<OVOpaqueObject>(data), nullptr);
  OVKeyedUnarchiver::registerClass(hostClass);
  const auto read = unarchived<Registered>(data);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->number, 5);
}

TEST(ArchiveClasses, RegisteringAgainDoesNothing) {
  static constexpr OVClass hostClass{"HostTwice", nullptr, &makeRegistered};
  EXPECT_EQ(refusalOf(hostClass), "accepted");
  EXPECT_EQ(refusalOf(hostClass), "accepted");
}

TEST(ArchiveClasses, ANameBelongsToOneClass) {
  static constexpr OVClass first{"HostTaken", nullptr, &makeRegistered};
  static constexpr OVClass second{"HostTaken", &first, &makeRegistered};
  EXPECT_EQ(refusalOf(first), "accepted");
  EXPECT_THAT(refusalOf(second), testing::HasSubstr("HostTaken belongs to another class"));
  EXPECT_EQ(refusalOf(first), "accepted");
}

TEST(ArchiveClasses, AClassNeedsANameAndAFunctionToMakeIt) {
  static constexpr OVClass nameless{nullptr, nullptr, &makeRegistered};
  static constexpr OVClass empty{"", nullptr, &makeRegistered};
  static constexpr OVClass abstract{"HostAbstract", nullptr, nullptr};
  for (const OVClass* each : {&nameless, &empty, &abstract}) {
    EXPECT_THAT(refusalOf(*each), testing::HasSubstr("needs a name and a function"));
  }
}

TEST(ArchiveClasses, NamesOfTheLibraryAndOfTheArchiveAreTaken) {
  for (const char* name :
       {"NSString", "NSMutableString", "NSNumber", "NSData", "NSMutableData", "NSArray",
        "NSMutableArray", "NSDictionary", "NSMutableDictionary", "NSDate", "OVImage", "OVLabel",
        "OVValue", "OVPersonGeneral", "OVAddressBookGeneral", "OVTagManager"}) {
    // Not static: a refused class is not kept.
    const OVClass impostor{name, nullptr, &makeRegistered};
    EXPECT_THAT(refusalOf(impostor), testing::HasSubstr("belongs to another class")) << name;
  }
  EXPECT_NE(unarchived<OVLabel>(archiveWithClass("OVLabel")), nullptr);
}

TEST(ArchiveClasses, AClassThatMakesNothingReadsAsNull) {
  static constexpr OVClass nothing{"HostNothing", nullptr, [] { return OVRef<OVObject>(); }};
  OVKeyedUnarchiver::registerClass(nothing);
  EXPECT_EQ(unarchived(archiveWithClass("HostNothing")), nullptr);
}

TEST(ArchiveClasses, NoClassIsKnownWhereAllIsToBeOpaque) {
  ArchiveBuilder archive;
  const auto label = archive.object("OVLabel", {{"name", archive.to(archive.addText("Home"))}});
  const auto root = archive.arrayOf("NSArray", {label, archive.object("HostNode", {})});
  const auto read = ov::cast<OVList<OVOpaqueObject>>(
      OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(archive.archive(root)));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read[0]->className(), "OVLabel");
  EXPECT_EQ(read[1]->className(), "HostNode");
}

// What an archive may build is written down in one place.
TEST(ArchiveClasses, EveryClassOfTheTableIsRegisteredUnderItsName) {
  ASSERT_GE(ov::libraryClasses().size(), 15U);
  for (const OVClass* each : ov::libraryClasses()) {
    EXPECT_EQ(ov::detail::registeredClass(each->name), each) << each->name;
    EXPECT_TRUE(ov::detail::isLibraryClass(*each)) << each->name;
    const auto made = each->make();
    ASSERT_NE(made, nullptr) << each->name;
    EXPECT_EQ(made->classForCoder(), each) << each->name;
  }
  EXPECT_EQ(ov::detail::registeredClass("XYUnknown"), nullptr);
}

TEST(ArchiveClasses, EveryClassMayBeEmptyInAnArchive) {
  for (const OVClass* each : ov::libraryClasses()) {
    ArchiveBuilder archive;
    const auto read = unarchived(archive.archive(archive.object(each->name, {})));
    ASSERT_NE(read, nullptr) << each->name;
    EXPECT_EQ(read->classForCoder(), each) << each->name;
    EXPECT_NE(unarchived(archiveOf(read)), nullptr) << each->name;
  }
}

}  // namespace
