#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/archive/plist_text.h"
#include "support/printers.h"

namespace {

using Uid = ArchiveBuilder::Uid;
using Any = OVList<OVObject>;

class FoundationForms : public testing::Test {
 protected:
  OVRef<OVObject> read(Uid root) { return unarchived(archive_.archive(root)); }
  template <class T>
  ov::Handle<T> read(Uid root) {
    return ov::cast<T>(read(root));
  }
  /// The class of an object that is kept as it is.
  OVString opaqueClassOf(Uid root) {
    const auto opaque = read<OVOpaqueObject>(root);
    return opaque == nullptr ? OVString() : opaque->className();
  }
  Uid text(std::string_view text) { return archive_.addText(text); }

  ArchiveBuilder archive_;
};

TEST_F(FoundationForms, TextObjects) {
  for (const char* name : {"NSString", "NSMutableString"}) {
    EXPECT_EQ(read<OVString>(archive_.object(name, {{"NS.string", archive_.ascii("text")}})),
              "text");
  }
  EXPECT_EQ(opaqueClassOf(archive_.object("NSString", {})), "NSString");
  EXPECT_EQ(opaqueClassOf(archive_.object("NSString", {{"NS.string", archive_.integer(1)}})),
            "NSString");
  EXPECT_EQ(opaqueClassOf(archive_.object("NSString", {{"NS.bytes", archive_.bytes("x")}})),
            "NSString");
}

TEST_F(FoundationForms, DataObjects) {
  for (const char* name : {"NSData", "NSMutableData"}) {
    const auto data = read<OVData>(archive_.object(name, {{"NS.data", archive_.bytes("\x01")}}));
    ASSERT_NE(data, nullptr) << name;
    EXPECT_EQ(data->text(), "\x01");
    EXPECT_EQ(opaqueClassOf(archive_.object(name, {})), name);
  }
}

TEST_F(FoundationForms, ATextObjectSharedByTwoIsOneText) {
  const Uid shared = archive_.object("NSMutableString", {{"NS.string", archive_.ascii("text")}});
  const auto texts = read<OVList<OVString>>(archive_.arrayOf("NSArray", {shared, shared}));
  EXPECT_TRUE(texts[0].isSame(texts[1]));
}

TEST_F(FoundationForms, Arrays) {
  for (const bool isMutable : {false, true}) {
    const auto list =
        read<Any>(archive_.arrayOf(isMutable ? "NSMutableArray" : "NSArray", {text("a"), 0}));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list.isImmutable(), !isMutable);
    EXPECT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1], nullptr);
  }
  EXPECT_EQ(opaqueClassOf(archive_.object("NSArray", {})), "NSArray");
  EXPECT_EQ(opaqueClassOf(archive_.object("NSArray", {{"NS.object.0", archive_.to(text("a"))}})),
            "NSArray");
}

TEST_F(FoundationForms, Dictionaries) {
  for (const bool isMutable : {false, true}) {
    const auto dictionary = read<OVDictionary<OVObject>>(
        archive_.dictionaryOf(isMutable ? "NSMutableDictionary" : "NSDictionary",
                              {text("k"), text("null")}, {text("v"), 0}));
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary.isImmutable(), !isMutable);
    EXPECT_EQ(ov::cast<OVString>(dictionary["k"]), "v");
    EXPECT_TRUE(dictionary.contains("null"));
    EXPECT_EQ(dictionary["null"], nullptr);
  }
  EXPECT_EQ(opaqueClassOf(archive_.object("NSDictionary", {})), "NSDictionary");
}

TEST_F(FoundationForms, ADictionaryMayHaveTextObjectsAsKeys) {
  const Uid key = archive_.object("NSMutableString", {{"NS.string", archive_.ascii("key")}});
  const auto dictionary =
      read<OVDictionary<OVString>>(archive_.dictionaryOf("NSDictionary", {key}, {text("value")}));
  ASSERT_NE(dictionary, nullptr);
  EXPECT_EQ(dictionary["key"], "value");
}

TEST_F(FoundationForms, ADictionaryWithOtherKeysIsKeptAsItIs) {
  const Uid number = archive_.add(archive_.integer(5));
  const Uid date = archive_.object("NSDate", {{"NS.time", archive_.real(1)}});
  for (const Uid key : {number, date, Uid{0}}) {
    const Uid odd = archive_.dictionaryOf("NSDictionary", {text("text"), key}, {key, text("v")});
    EXPECT_EQ(opaqueClassOf(odd), "NSDictionary") << key;
  }
}

TEST_F(FoundationForms, Dates) {
  const auto object = read<OVDate>(archive_.object("NSDate", {{"NS.time", archive_.real(1.5)}}));
  EXPECT_EQ(object->timeIntervalSinceReferenceDate(), 1.5);
  const auto whole = read<OVDate>(archive_.object("NSDate", {{"NS.time", archive_.integer(-2)}}));
  EXPECT_EQ(whole->timeIntervalSinceReferenceDate(), -2);
  const auto bare = read<OVDate>(archive_.add(archive_.date(2.5)));
  EXPECT_EQ(bare->timeIntervalSinceReferenceDate(), 2.5);
  const auto timeless = read<OVDate>(archive_.object("NSDate", {}));
  EXPECT_EQ(timeless->timeIntervalSinceReferenceDate(), 0);
}

TEST_F(FoundationForms, WithoutClassesTextAndDataObjectsTellTheirs) {
  const Uid string = archive_.object("NSMutableString", {{"NS.string", archive_.ascii("text")}});
  const Uid data = archive_.object("NSMutableData", {{"NS.data", archive_.bytes("b")}});
  const Uid keyed = archive_.dictionaryOf("NSDictionary", {string}, {data});
  const auto block = archive_.archive(archive_.arrayOf("NSArray", {string, data, keyed}));
  const auto list =
      ov::cast<OVList<OVOpaqueObject>>(OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block));
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[0]->className(), "NSMutableString");
  EXPECT_EQ(list[0]->fields()[0].key, "NS.string");
  EXPECT_EQ(list[1]->className(), "NSMutableData");
  EXPECT_EQ(list[2]->className(), "NSDictionary");
  const auto written = archiveOf(list);
  EXPECT_THAT(archivedObjects(written), testing::Contains("{NS.string: \"text\", $class: #6}"));
}

TEST_F(FoundationForms, Numbers) {
  EXPECT_EQ(read<OVNumber>(archive_.add(archive_.integer(7, 8)))->integerValue(), 7);
  EXPECT_EQ(read<OVNumber>(archive_.add(archive_.shortReal(0.5F)))->doubleValue(), 0.5);
  EXPECT_TRUE(read<OVNumber>(archive_.add(archive_.boolean(true)))->boolValue());
}

TEST_F(FoundationForms, WhatThisSystemHasNoClassForIsKeptAsItIs) {
  const Uid url = archive_.object(
      "NSURL",
      {{"NS.base", archive_.to(0)}, {"NS.relative", archive_.to(text("http://a.example"))}});
  const Uid uuid =
      archive_.object("NSUUID", {{"NS.uuidbytes", archive_.bytes(std::string(16, '\x11'))}});
  const Uid set = archive_.arrayOf("NSSet", {text("a")});
  const Uid orderedSet = archive_.object("NSOrderedSet", {{"NS.object.0", archive_.to(text("a"))}});
  const Uid null = archive_.object("NSNull", {});
  const Uid attributed = archive_.object(
      "NSAttributedString",
      {{"NSString", archive_.to(text("a"))},
       {"NSAttributes", archive_.to(archive_.dictionaryOf("NSDictionary", {}, {}))}});
  const auto data =
      archive_.archive(archive_.arrayOf("NSArray", {url, uuid, set, orderedSet, null, attributed}));
  const auto list = unarchived<OVList<OVOpaqueObject>>(data);
  ASSERT_EQ(list.size(), 6U);
  for (const OVRef<OVOpaqueObject> each : list) EXPECT_NE(each, nullptr);
  const auto written = archivedObjects(archiveOf(list));
  for (const char* expected :
       {"{NS.base: #0, NS.relative: #", "{NS.uuidbytes: <11111111111111111111111111111111>",
        "{NS.objects: [#", "{NS.object.0: #", "{$class: #", "{NSString: #"}) {
    EXPECT_THAT(written, testing::Contains(testing::StartsWith(expected)));
  }
}

}  // namespace
