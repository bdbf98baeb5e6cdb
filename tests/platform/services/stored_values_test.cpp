// What is set comes back from the disk as it was.

#include <cmath>
#include <limits>
#include <string>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>

#include "platform/services/deadline.h"
#include "platform/services/sqlite.h"
#include "stored_defaults.h"
#include "support/printers.h"

namespace {

using std::string_view_literals::operator""sv;

class StoredValues : public StoredDefaults {
 protected:
  OVRef<OVObject> storedAndRead(const OVRef<OVObject>& object) const {
    openStore()->setObjectForKey(object, "key");
    return openStore()->objectForKey("key");
  }
  OVNumber::Value number(const OVRef<OVNumber>& object) const {
    const auto read = ov::cast<OVNumber>(storedAndRead(object));
    return read == nullptr ? OVNumber::Value() : read->value();
  }
  double date(double seconds) const {
    const auto read =
        ov::cast<OVDate>(storedAndRead(OVDate::dateWithTimeIntervalSinceReferenceDate(seconds)));
    EXPECT_NE(read, nullptr);
    return read == nullptr ? 0 : read->timeIntervalSinceReferenceDate();
  }
  OVString text(const OVString& given) const { return ov::cast<OVString>(storedAndRead(given)); }
};

TEST_F(StoredValues, TruthValues) {
  EXPECT_EQ(number(OVNumber::numberWithBool(true)), OVNumber::Value(true));
  EXPECT_EQ(number(OVNumber::numberWithBool(false)), OVNumber::Value(false));
}

TEST_F(StoredValues, Integers) {
  for (const std::int64_t value :
       {std::int64_t{0}, std::int64_t{1}, std::int64_t{-1},
        std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_EQ(number(OVNumber::numberWithInteger(value)), OVNumber::Value(value));
  }
}

TEST_F(StoredValues, UnsignedIntegers) {
  for (const std::uint64_t value :
       {std::uint64_t{1} << 63U, std::numeric_limits<std::uint64_t>::max()}) {
    EXPECT_EQ(number(OVNumber::numberWithUnsigned(value)), OVNumber::Value(value));
  }
}

TEST_F(StoredValues, Reals) {
  using Limits = std::numeric_limits<double>;
  for (const double value : {0.0, 1.0, -2.5, 0.1, Limits::max(), Limits::denorm_min(),
                             Limits::infinity(), -Limits::infinity()}) {
    EXPECT_EQ(number(OVNumber::numberWithDouble(value)), OVNumber::Value(value));
  }
}

TEST_F(StoredValues, RealsWithoutAnEqual) {
  const auto read = number(OVNumber::numberWithDouble(std::nan("")));
  ASSERT_TRUE(std::holds_alternative<double>(read));
  EXPECT_TRUE(std::isnan(std::get<double>(read)));
  const auto zero = number(OVNumber::numberWithDouble(-0.0));
  ASSERT_TRUE(std::holds_alternative<double>(zero));
  EXPECT_TRUE(std::signbit(std::get<double>(zero)));
}

TEST_F(StoredValues, Dates) {
  EXPECT_EQ(date(0), 0);
  EXPECT_EQ(date(-1234567.25), -1234567.25);
  EXPECT_EQ(date(std::numeric_limits<double>::infinity()), std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(date(std::nan(""))));
}

TEST_F(StoredValues, Texts) {
  for (const std::string_view given : {""sv, "text"sv, "\xC3\xA4\xF0\x9F\x98\x80"sv, "a\0b"sv,
                                       "1"sv, "'; DROP TABLE defaults; --"sv}) {
    EXPECT_EQ(text(given), OVString(given));
  }
}

TEST_F(StoredValues, Data) {
  for (const std::string_view given : {""sv, "bytes"sv, "\0\xFF\xFE"sv}) {
    const auto read = ov::cast<OVData>(storedAndRead(OVData::dataWithText(given)));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->text(), given);
  }
}

TEST_F(StoredValues, LargeData) {
  const std::string given(5'000'000, 'x');
  const auto read = ov::cast<OVData>(storedAndRead(OVData::dataWithText(given)));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->text(), given);
}

TEST_F(StoredValues, AnyTextIsAKey) {
  const auto defaults = openStore();
  const OVString nul = "a\0b"sv;
  setInteger(*defaults, 1, "");
  setInteger(*defaults, 2, nul);
  setInteger(*defaults, 3, "a");
  setInteger(*defaults, 4, "\u00E4 '\"%");
  const auto read = openStore();
  EXPECT_EQ(integer(*read, ""), 1);
  EXPECT_EQ(integer(*read, nul), 2);
  EXPECT_EQ(integer(*read, "a"), 3);
  EXPECT_EQ(integer(*read, "\u00E4 '\"%"), 4);
}

TEST_F(StoredValues, ARemovedEntryStaysRemoved) {
  openStore()->setBoolForKey(true, "key");
  openStore()->setObjectForKey(nullptr, "key");
  EXPECT_EQ(openStore()->objectForKey("key"), nullptr);
}

TEST_F(StoredValues, ASetIsVisibleAtOnce) {
  const auto defaults = openStore();
  EXPECT_FALSE(defaults->boolForKey("key"));
  defaults->setBoolForKey(true, "key");
  EXPECT_TRUE(defaults->boolForKey("key"));
}

TEST_F(StoredValues, SynchronizePicksUpWhatOthersHaveSet) {
  const auto reader = openStore();
  const auto writer = openStore();
  writer->setBoolForKey(true, "kept");
  EXPECT_FALSE(openStore()->boolForKey("key"));
  EXPECT_FALSE(reader->boolForKey("key"));
  writer->setBoolForKey(true, "key");
  writer->setObjectForKey(nullptr, "kept");
  EXPECT_TRUE(reader->synchronize());
  EXPECT_TRUE(reader->boolForKey("key"));
  EXPECT_FALSE(reader->boolForKey("kept"));
}

TEST_F(StoredValues, ASetLeavesTheEntriesOfOthersAlone) {
  const auto one = openStore();
  const auto two = openStore();
  EXPECT_FALSE(one->boolForKey("two"));
  EXPECT_FALSE(two->boolForKey("one"));
  one->setBoolForKey(true, "one");
  two->setBoolForKey(true, "two");
  one->setBoolForKey(true, "three");
  const auto read = openStore();
  EXPECT_TRUE(read->boolForKey("one"));
  EXPECT_TRUE(read->boolForKey("two"));
  EXPECT_TRUE(read->boolForKey("three"));
}

TEST_F(StoredValues, EntriesOfAnUnknownKindAreKeptAndReadAsAbsent) {
  openStore()->setBoolForKey(true, "key");
  ov::Deadline deadline(std::chrono::seconds(10));
  {
    ov::sqlite::Database database(this->database().string(), deadline);
    database.execute("INSERT INTO defaults (key, kind, value) VALUES ('later', 99, 'x')");
  }
  const auto defaults = openStore();
  EXPECT_EQ(defaults->objectForKey("later"), nullptr);
  defaults->setBoolForKey(false, "key");
  EXPECT_TRUE(defaults->synchronize());
  ov::sqlite::Database database(this->database().string(), deadline);
  ov::sqlite::Statement row(database, "SELECT value FROM defaults WHERE key = 'later'");
  ASSERT_TRUE(row.step());
  EXPECT_EQ(row.text(0), "x");
}

TEST_F(StoredValues, TheLogStaysShort) {
  const auto log = database().string() + "-wal";
  const auto defaults = openStore();
  const auto data = OVData::dataWithText(std::string(200'000, 'x'));
  for (int round = 0; round < 200; ++round) defaults->setObjectForKey(data, "key");
  EXPECT_LT(std::filesystem::file_size(log), 20'000'000U);
  // Whoever opens the database next has little to read.
  setInteger(*openStore(), 1, "key");
  EXPECT_LT(std::filesystem::file_size(log), 2'000'000U);
}

TEST_F(StoredValues, TheLogStaysShortFromProcessToProcess) {
  const auto data = OVData::dataWithText(std::string(20'000, 'x'));
  for (int round = 0; round < 200; ++round) openStore()->setObjectForKey(data, "key");
  EXPECT_LT(std::filesystem::file_size(database().string() + "-wal"), 2'000'000U);
}

TEST_F(StoredValues, SynchronizeLeavesEverythingInTheDatabaseItself) {
  const auto defaults = openStore();
  setInteger(*defaults, 42, "key");
  EXPECT_TRUE(defaults->synchronize());
  std::filesystem::remove(database().string() + "-wal");
  std::filesystem::remove(database().string() + "-shm");
  EXPECT_EQ(integer(*openStore(), "key"), 42);
}

TEST_F(StoredValues, NothingIsLoggedWhenAllIsWell) {
  const auto defaults = openStore();
  setInteger(*defaults, 1, "key");
  EXPECT_TRUE(defaults->synchronize());
  EXPECT_THAT(log_->lines(), testing::IsEmpty());
}

}  // namespace
