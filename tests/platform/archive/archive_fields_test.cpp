#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/archive/host_node.h"
#include "support/archive/plist_text.h"
#include "support/printers.h"

namespace {

using Integers = std::numeric_limits<std::int64_t>;

/// Writes and reads its fields as a test says.
class Scripted : public OVObject {
 public:
  using Encode = std::function<void(OVKeyedArchiver&)>;
  using Decode = std::function<void(OVKeyedUnarchiver&)>;

  const OVClass* classForCoder() const override { return &record(); }
  void encodeWithCoder(OVKeyedArchiver& coder) const override { encode(coder); }
  void initWithCoder(OVKeyedUnarchiver& coder) override { decode(coder); }

  static const OVClass& record() {
    static const OVClass record{"Scripted", nullptr,
                                [] { return OVRef<OVObject>(std::make_shared<Scripted>()); }};
    return record;
  }

  static inline Encode encode;
  static inline Decode decode;
};

OVRef<OVData> written(Scripted::Encode encode) {
  Scripted::encode = std::move(encode);
  return archiveOf(std::make_shared<Scripted>());
}

/// Reads the object that `encode` writes.
void writtenAndRead(Scripted::Encode encode, Scripted::Decode decode) {
  OVKeyedUnarchiver::registerClass(Scripted::record());
  int reads = 0;
  Scripted::decode = [&](OVKeyedUnarchiver& coder) {
    decode(coder);
    ++reads;
  };
  ASSERT_NE(unarchived<Scripted>(written(std::move(encode))), nullptr);
  EXPECT_EQ(reads, 1);
}

std::string fieldsOf(Scripted::Encode encode) {
  return archivedObjects(written(std::move(encode)))[1];
}

TEST(ArchiveFields, PlainValuesAreInTheObject) {
  const std::byte bytes[] = {std::byte{0}, std::byte{0xFF}};
  EXPECT_EQ(fieldsOf([&](OVKeyedArchiver& coder) {
              coder.encodeIntegerForKey(-1, "integer");
              coder.encodeBoolForKey(true, "bool");
              coder.encodeDoubleForKey(2, "double");
              coder.encodeBytesForKey(bytes, "bytes");
            }),
            "{integer: -1, bool: true, double: 2.0, bytes: <00ff>, $class: #2}");
}

TEST(ArchiveFields, PlainValuesComeBack) {
  const std::byte bytes[] = {std::byte{0}, std::byte{0xFF}};
  writtenAndRead(
      [&](OVKeyedArchiver& coder) {
        coder.encodeIntegerForKey(Integers::min(), "smallest");
        coder.encodeIntegerForKey(Integers::max(), "largest");
        coder.encodeBoolForKey(true, "bool");
        coder.encodeDoubleForKey(0.1, "double");
        coder.encodeBytesForKey(bytes, "bytes");
        coder.encodeBytesForKey({}, "none");
      },
      [&](OVKeyedUnarchiver& coder) {
        EXPECT_EQ(coder.decodeIntegerForKey("smallest"), Integers::min());
        EXPECT_EQ(coder.decodeIntegerForKey("largest"), Integers::max());
        EXPECT_TRUE(coder.decodeBoolForKey("bool"));
        EXPECT_EQ(coder.decodeDoubleForKey("double"), 0.1);
        EXPECT_THAT(coder.decodeBytesForKey("bytes"), testing::ElementsAreArray(bytes));
        EXPECT_TRUE(coder.containsValueForKey("none"));
        EXPECT_TRUE(coder.decodeBytesForKey("none").empty());
      });
}

TEST(ArchiveFields, AbsentKeysReadAsNullOrZero) {
  writtenAndRead([](OVKeyedArchiver&) {},
                 [](OVKeyedUnarchiver& coder) {
                   std::vector<OVRef<OVObject>> items{OVString("untouched")};
                   EXPECT_FALSE(coder.containsValueForKey("absent"));
                   EXPECT_EQ(coder.decodeObjectForKey("absent"), nullptr);
                   EXPECT_TRUE(coder.decodeStringForKey("absent").isNull());
                   EXPECT_FALSE(coder.decodeListForKey(items, "absent"));
                   EXPECT_EQ(coder.decodeIntegerForKey("absent"), 0);
                   EXPECT_FALSE(coder.decodeBoolForKey("absent"));
                   EXPECT_EQ(coder.decodeDoubleForKey("absent"), 0);
                   EXPECT_TRUE(coder.decodeBytesForKey("absent").empty());
                 });
}

TEST(ArchiveFields, ANullObjectIsPresentAndReadsAsNull) {
  writtenAndRead(
      [](OVKeyedArchiver& coder) {
        coder.encodeObjectForKey(OVString(), "text");
        coder.encodeObjectForKey(OVRef<OVObject>(), "object");
      },
      [](OVKeyedUnarchiver& coder) {
        EXPECT_TRUE(coder.containsValueForKey("text"));
        EXPECT_TRUE(coder.decodeStringForKey("text").isNull());
        EXPECT_EQ(coder.decodeObjectForKey("object"), nullptr);
      });
}

TEST(ArchiveFields, KeysThatBeginWithADollarHaveOneMoreInTheArchive) {
  const auto encode = [](OVKeyedArchiver& coder) {
    coder.encodeIntegerForKey(1, "$class");
    coder.encodeIntegerForKey(2, "$");
    coder.encodeIntegerForKey(3, "$$");
    coder.encodeIntegerForKey(4, "a$");
  };
  EXPECT_EQ(fieldsOf(encode), "{$$class: 1, $$: 2, $$$: 3, a$: 4, $class: #2}");
  writtenAndRead(encode, [](OVKeyedUnarchiver& coder) {
    EXPECT_EQ(coder.decodeIntegerForKey("$class"), 1);
    EXPECT_EQ(coder.decodeIntegerForKey("$"), 2);
    EXPECT_EQ(coder.decodeIntegerForKey("$$"), 3);
    EXPECT_EQ(coder.decodeIntegerForKey("a$"), 4);
    EXPECT_FALSE(coder.containsValueForKey("$$class"));
  });
}

TEST(ArchiveFields, KeysMayBeAnyText) {
  const auto encode = [](OVKeyedArchiver& coder) {
    coder.encodeIntegerForKey(1, "");
    coder.encodeIntegerForKey(2, "Geburtstag der Zoë");
    coder.encodeIntegerForKey(3, std::string(300, 'k'));
  };
  writtenAndRead(encode, [](OVKeyedUnarchiver& coder) {
    EXPECT_EQ(coder.decodeIntegerForKey(""), 1);
    EXPECT_EQ(coder.decodeIntegerForKey(std::string_view()), 1);
    EXPECT_EQ(coder.decodeIntegerForKey("Geburtstag der Zoë"), 2);
    EXPECT_EQ(coder.decodeIntegerForKey(std::string(300, 'k')), 3);
  });
}

TEST(ArchiveFields, AKeyWithoutCharactersMayBeAnEmptyView) {
  EXPECT_EQ(
      fieldsOf([](OVKeyedArchiver& coder) { coder.encodeIntegerForKey(1, std::string_view()); }),
      "{\"\": 1, $class: #2}");
}

// A key is a text like any other: what is ill-formed in it is repaired, never read past its end.
TEST(ArchiveFields, IllFormedKeysAreRepaired) {
  EXPECT_EQ(fieldsOf([](OVKeyedArchiver& coder) { coder.encodeIntegerForKey(1, "bad\xF0"); }),
            "{\"bad\uFFFD\": 1, $class: #2}");
}

TEST(ArchiveFields, OfTwoFieldsWithOneKeyTheFirstCounts) {
  const auto encode = [](OVKeyedArchiver& coder) {
    coder.encodeIntegerForKey(1, "twice");
    coder.encodeIntegerForKey(2, "twice");
  };
  EXPECT_EQ(fieldsOf(encode), "{twice: 1, $class: #2}");
}

TEST(ArchiveFields, TheSameKeysMayComeFromChangingBuffers) {
  const auto encode = [](OVKeyedArchiver& coder) {
    char key[2] = "a";
    for (; key[0] <= 'e'; ++key[0]) coder.encodeIntegerForKey(key[0], key);
  };
  writtenAndRead(encode, [](OVKeyedUnarchiver& coder) {
    char key[2] = "a";
    for (; key[0] <= 'e'; ++key[0]) EXPECT_EQ(coder.decodeIntegerForKey(key), key[0]);
  });
}

TEST(ArchiveFields, ObjectsMayAskForTheirKeysInOrdersOfTheirOwnFromOneBuffer) {
  OVKeyedUnarchiver::registerClass(Scripted::record());
  Scripted::encode = [](OVKeyedArchiver& coder) {
    coder.encodeIntegerForKey(1, "a");
    coder.encodeIntegerForKey(2, "b");
  };
  const auto list = OVList<OVObject>::list();
  for (int i = 0; i < 4; ++i) list.push_back(std::make_shared<Scripted>());
  const auto block = archiveOf(list);
  std::vector<std::int64_t> read;
  std::string order = "ab";
  char key[2] = "";
  Scripted::decode = [&](OVKeyedUnarchiver& coder) {
    for (const char letter : order) {
      key[0] = letter;
      read.push_back(coder.decodeIntegerForKey(key));
    }
    std::ranges::reverse(order);
  };
  EXPECT_NE(unarchived(block), nullptr);
  EXPECT_EQ(read, (std::vector<std::int64_t>{1, 2, 2, 1, 1, 2, 2, 1}));
}

TEST(ArchiveFields, ObjectsWithAsManyKeysHaveTheirOwn) {
  OVKeyedUnarchiver::registerClass(Scripted::record());
  int objects = 0;
  Scripted::encode = [&](OVKeyedArchiver& coder) {
    coder.encodeIntegerForKey(1, "same");
    coder.encodeIntegerForKey(2, objects++ == 0 ? "first" : "second");
  };
  const auto block = archiveOf(
      OVList<OVObject>::list({std::make_shared<Scripted>(), std::make_shared<Scripted>()}));
  std::vector<std::int64_t> read;
  Scripted::decode = [&](OVKeyedUnarchiver& coder) {
    read.push_back(coder.decodeIntegerForKey("first"));
    read.push_back(coder.decodeIntegerForKey("second"));
  };
  EXPECT_NE(unarchived(block), nullptr);
  EXPECT_EQ(read, (std::vector<std::int64_t>{2, 0, 0, 2}));
}

}  // namespace
