#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/single_value.h>

#include "support/archive/archive_builder.h"
#include "support/archive/host_node.h"
#include "support/printers.h"

namespace {

using Integers = std::numeric_limits<std::int64_t>;
using Reals = std::numeric_limits<double>;
using Decode = std::function<void(OVKeyedUnarchiver&)>;

/// Hands its coder to a test.
class Probe : public OVObject {
 public:
  const OVClass* classForCoder() const override { return &record(); }
  void initWithCoder(OVKeyedUnarchiver& coder) override { decode(coder); }

  static const OVClass& record() {
    static const OVClass record{"Probe", nullptr,
                                [] { return OVRef<OVObject>(std::make_shared<Probe>()); }};
    return record;
  }
  static inline Decode decode;
};

class TypedReads : public testing::Test {
 protected:
  using Number = ArchiveBuilder::Number;

  /// Reads an object with `value` under the key "key".
  void read(Number value, Decode decode) {
    OVKeyedUnarchiver::registerClass(Probe::record());
    Probe::decode = std::move(decode);
    const auto probe = archive_.object("Probe", {{"key", value}});
    ASSERT_NE(unarchived<Probe>(archive_.archive(probe)), nullptr);
  }

  std::int64_t integer(Number value) {
    std::int64_t result = -77;
    read(value, [&](OVKeyedUnarchiver& coder) { result = coder.decodeIntegerForKey("key"); });
    return result;
  }
  double real(Number value) {
    double result = -77;
    read(value, [&](OVKeyedUnarchiver& coder) { result = coder.decodeDoubleForKey("key"); });
    return result;
  }
  bool truth(Number value) {
    bool result = false;
    read(value, [&](OVKeyedUnarchiver& coder) { result = coder.decodeBoolForKey("key"); });
    return result;
  }

  /// An integer of 16 bytes above the signed range.
  Number huge() { return archive_.raw("\x14" + std::string(8, '\0') + std::string(8, '\xFF')); }
  Number textReference() { return archive_.to(archive_.addText("5")); }

  ArchiveBuilder archive_;
};

TEST_F(TypedReads, NumbersConvertIntoEachOther) {
  EXPECT_EQ(integer(archive_.real(2.9)), 2);
  EXPECT_EQ(integer(archive_.real(-2.9)), -2);
  EXPECT_EQ(integer(archive_.boolean(true)), 1);
  EXPECT_EQ(integer(archive_.boolean(false)), 0);
  EXPECT_EQ(real(archive_.integer(-3)), -3);
  EXPECT_EQ(real(archive_.boolean(true)), 1);
  EXPECT_TRUE(truth(archive_.integer(-1)));
  EXPECT_FALSE(truth(archive_.integer(0)));
  EXPECT_TRUE(truth(archive_.real(0.1)));
  EXPECT_FALSE(truth(archive_.real(-0.0)));
}

TEST_F(TypedReads, NumbersOutOfRangeAreTheNearestEnd) {
  EXPECT_EQ(integer(archive_.real(1e300)), Integers::max());
  EXPECT_EQ(integer(archive_.real(-1e300)), Integers::min());
  EXPECT_EQ(integer(archive_.real(Reals::infinity())), Integers::max());
  EXPECT_EQ(integer(archive_.real(9223372036854775808.0)), Integers::max());
  EXPECT_EQ(integer(archive_.real(-9223372036854775808.0)), Integers::min());
  EXPECT_EQ(integer(huge()), Integers::max());
  EXPECT_EQ(real(huge()), 18446744073709551615.0);
}

TEST_F(TypedReads, NotANumberIsZeroAsAnInteger) {
  EXPECT_EQ(integer(archive_.real(Reals::quiet_NaN())), 0);
  EXPECT_TRUE(std::isnan(real(archive_.real(Reals::quiet_NaN()))));
}

TEST_F(TypedReads, SomethingOfAnotherKindIsZero) {
  for (const Number value :
       {archive_.ascii("5"), archive_.bytes("5"), archive_.array({}), archive_.null(),
        archive_.date(5), textReference(), archive_.to(archive_.add(archive_.integer(5)))}) {
    EXPECT_EQ(integer(value), 0);
    EXPECT_EQ(real(value), 0);
    EXPECT_FALSE(truth(value));
  }
}

TEST_F(TypedReads, TextsAreNullWhereThereIsSomethingElse) {
  const auto date = archive_.object("NSDate", {{"NS.time", archive_.real(1)}});
  for (const Number value : {archive_.integer(5), archive_.to(date), archive_.to(0),
                             archive_.to(archive_.add(archive_.integer(5)))}) {
    read(value,
         [](OVKeyedUnarchiver& coder) { EXPECT_TRUE(coder.decodeStringForKey("key").isNull()); });
  }
  read(archive_.ascii("inline"), [](OVKeyedUnarchiver& coder) {
    EXPECT_EQ(coder.decodeStringForKey("key"), "inline");
    EXPECT_EQ(ov::cast<OVString>(coder.decodeObjectForKey("key")), "inline");
  });
}

TEST_F(TypedReads, ObjectsOfAnotherClassAreNullInATypedRead) {
  read(textReference(), [](OVKeyedUnarchiver& coder) {
    EXPECT_EQ(coder.decodeObjectForKey<OVDate>("key"), nullptr);
    EXPECT_EQ(coder.decodeObjectForKey<OVList<OVString>>("key"), nullptr);
    EXPECT_EQ(coder.decodeObjectForKey<OVString>("key"), "5");
  });
}

TEST_F(TypedReads, BytesAreNoneWhereThereIsSomethingElse) {
  for (const Number value :
       {archive_.ascii("5"), textReference(), archive_.to(archive_.add(archive_.bytes("5")))}) {
    read(value,
         [](OVKeyedUnarchiver& coder) { EXPECT_TRUE(coder.decodeBytesForKey("key").empty()); });
  }
}

TEST_F(TypedReads, AListIsNoneWhereThereIsSomethingElse) {
  const auto set = archive_.arrayOf("NSSet", {archive_.addText("a")});
  for (const Number value : {archive_.integer(1), textReference(), archive_.to(0), archive_.to(set),
                             archive_.array({})}) {
    read(value, [](OVKeyedUnarchiver& coder) {
      std::vector<OVRef<OVObject>> items;
      EXPECT_FALSE(coder.decodeListForKey(items, "key"));
      EXPECT_TRUE(items.empty());
    });
  }
}

TEST_F(TypedReads, AListMayBeOfEitherKindAndHoldNull) {
  for (const char* name : {"NSArray", "NSMutableArray"}) {
    read(archive_.to(archive_.arrayOf(name, {archive_.addText("a"), 0})),
         [](OVKeyedUnarchiver& coder) {
           std::vector<OVRef<OVObject>> items;
           EXPECT_TRUE(coder.decodeListForKey(items, "key"));
           ASSERT_EQ(items.size(), 2U);
           EXPECT_EQ(ov::cast<OVString>(items[0]), "a");
           EXPECT_EQ(items[1], nullptr);
         });
  }
}

TEST_F(TypedReads, AListThatIsReadTwiceHoldsTheSameObjects) {
  const auto date = archive_.object("NSDate", {});
  read(archive_.to(archive_.arrayOf("NSArray", {date})), [](OVKeyedUnarchiver& coder) {
    std::vector<OVRef<OVObject>> items;
    ASSERT_TRUE(coder.decodeListForKey(items, "key"));
    const auto list = coder.decodeObjectForKey<OVList<OVDate>>("key");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list.front(), items.front());
    EXPECT_EQ(coder.decodeObjectForKey("key"), coder.decodeObjectForKey("key"));
  });
}

}  // namespace
