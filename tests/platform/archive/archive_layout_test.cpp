#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/number.h>

#include "support/archive/host_node.h"
#include "support/archive/plist_text.h"

using testing::ElementsAre;

namespace {

using Any = OVList<OVObject>;

std::vector<std::string> objectsOf(const OVRef<OVObject>& root) {
  return archivedObjects(archiveOf(root));
}

TEST(ArchiveLayout, TheHeadNamesVersionAndArchiver) {
  EXPECT_EQ(plistText(archiveOf(OVString("text"))),
            "{$version: 100000, $archiver: \"NSKeyedArchiver\", $top: {root: #1}, "
            "$objects: [\"$null\", \"text\"]}");
}

TEST(ArchiveLayout, ANullRootIsObjectZero) {
  EXPECT_EQ(plistText(archiveOf(nullptr)),
            "{$version: 100000, $archiver: \"NSKeyedArchiver\", $top: {root: #0}, "
            "$objects: [\"$null\"]}");
}

TEST(ArchiveLayout, TextsNumbersAndDataAreDirectlyInTheArchive) {
  const auto list = Any::list({OVString("a"), OVNumber::numberWithInteger(-7),
                               OVNumber::numberWithBool(true), OVNumber::numberWithDouble(0.5),
                               OVNumber::numberWithUnsigned(18446744073709551615U),
                               OVData::dataWithText("\x01\xFE")});
  EXPECT_THAT(objectsOf(list),
              ElementsAre("\"$null\"", "{NS.objects: [#2, #3, #4, #5, #6, #7], $class: #8}",
                          "\"a\"", "-7", "true", "0.5", "18446744073709551615", "<01fe>",
                          "{$classname: \"NSMutableArray\", "
                          "$classes: [\"NSMutableArray\", \"NSArray\", \"NSObject\"]}"));
}

TEST(ArchiveLayout, ListsAreArrays) {
  EXPECT_THAT(objectsOf(Any::immutableList()),
              ElementsAre("\"$null\"", "{NS.objects: [], $class: #2}",
                          "{$classname: \"NSArray\", $classes: [\"NSArray\", \"NSObject\"]}"));
}

TEST(ArchiveLayout, DictionariesAreKeysAndObjects) {
  const auto dictionary =
      OVDictionary<OVString>::dictionary({{"one", "1"}, {"two", "2"}, {"again", "1"}});
  EXPECT_THAT(
      objectsOf(dictionary),
      ElementsAre("\"$null\"", "{NS.keys: [#2, #4, #6], NS.objects: [#3, #5, #3], $class: #7}",
                  "\"one\"", "\"1\"", "\"two\"", "\"2\"", "\"again\"",
                  "{$classname: \"NSMutableDictionary\", "
                  "$classes: [\"NSMutableDictionary\", \"NSDictionary\", \"NSObject\"]}"));
  static_cast<ov::detail::DictionaryObject&>(*dictionary.object()).immutable = true;
  EXPECT_EQ(objectsOf(dictionary).back(),
            "{$classname: \"NSDictionary\", $classes: [\"NSDictionary\", \"NSObject\"]}");
}

TEST(ArchiveLayout, DatesAndImagesAreObjects) {
  EXPECT_THAT(objectsOf(OVDate::dateWithTimeIntervalSinceReferenceDate(-1.5)),
              ElementsAre("\"$null\"", "{NS.time: -1.5, $class: #2}",
                          "{$classname: \"NSDate\", $classes: [\"NSDate\", \"NSObject\"]}"));
  EXPECT_THAT(objectsOf(OVImage::imageWithData(OVData::dataWithText("\x7F"))),
              ElementsAre("\"$null\"", "{data: #2, $class: #3}", "<7f>",
                          "{$classname: \"OVImage\", $classes: [\"OVImage\", \"NSObject\"]}"));
}

TEST(ArchiveLayout, OneRecordForEachClass) {
  const auto first = HostNode::node("first");
  first->next = HostNode::node("second");
  EXPECT_THAT(
      objectsOf(first),
      ElementsAre("\"$null\"", "{name: #2, next: #3, others: #4, $class: #5}", "\"first\"",
                  "{name: #6, next: #0, others: #7, $class: #5}", "{NS.objects: [], $class: #8}",
                  "{$classname: \"HostNode\", $classes: [\"HostNode\", \"NSObject\"]}",
                  "\"second\"", "{NS.objects: [], $class: #8}",
                  "{$classname: \"NSMutableArray\", "
                  "$classes: [\"NSMutableArray\", \"NSArray\", \"NSObject\"]}"));
}

class HostLeaf : public OVObject {
 public:
  const OVClass* classForCoder() const override {
    static constexpr OVClass root{"HostRoot", nullptr, nullptr};
    static constexpr OVClass middle{"HostMiddle", &root, nullptr};
    static constexpr OVClass leaf{"HostLeaf", &middle, nullptr};
    return &leaf;
  }
};

TEST(ArchiveLayout, AClassRecordNamesTheWholeAncestry) {
  EXPECT_EQ(objectsOf(std::make_shared<HostLeaf>()).back(),
            "{$classname: \"HostLeaf\", "
            "$classes: [\"HostLeaf\", \"HostMiddle\", \"HostRoot\", \"NSObject\"]}");
}

TEST(ArchiveLayout, EqualTextsNumbersAndDataAreWrittenOnce) {
  const auto list = Any::list({OVString("same"), OVString("same"), OVNumber::numberWithInteger(1),
                               OVNumber::numberWithInteger(1), OVNumber::numberWithBool(true),
                               OVData::dataWithText("d"), OVData::dataWithText("d")});
  EXPECT_EQ(objectsOf(list)[1], "{NS.objects: [#2, #2, #3, #3, #4, #5, #5], $class: #6}");
}

TEST(ArchiveLayout, NullReferencesLeadToObjectZero) {
  EXPECT_THAT(objectsOf(HostNode::node()),
              testing::Contains("{name: #0, next: #0, others: #2, $class: #3}"));
}

// Null is known by its place, not by its text.
TEST(ArchiveLayout, ATextMayReadLikeNull) {
  const auto data = archiveOf(OVString("$null"));
  EXPECT_THAT(archivedObjects(data), ElementsAre("\"$null\"", "\"$null\""));
  EXPECT_EQ(unarchived<OVString>(data), "$null");
}

}  // namespace
