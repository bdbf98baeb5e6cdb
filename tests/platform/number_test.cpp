#include <OVAddressBookSDK/number.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <variant>

#include <gtest/gtest.h>

namespace {

using Integers = std::numeric_limits<std::int64_t>;
using Naturals = std::numeric_limits<std::uint64_t>;
using Reals = std::numeric_limits<double>;

std::int64_t integerOf(double value) { return OVNumber::numberWithDouble(value)->integerValue(); }

TEST(Number, KeepsItsKind) {
  EXPECT_EQ(OVNumber::numberWithBool(true)->value(), OVNumber::Value(true));
  EXPECT_EQ(OVNumber::numberWithInteger(1)->value(), OVNumber::Value(std::int64_t{1}));
  EXPECT_EQ(OVNumber::numberWithDouble(1)->value(), OVNumber::Value(1.0));
}

TEST(Number, IsUnsignedOnlyAboveTheSignedRange) {
  const std::uint64_t largest = Integers::max();
  EXPECT_EQ(OVNumber::numberWithUnsigned(0)->value(), OVNumber::Value(std::int64_t{0}));
  EXPECT_EQ(OVNumber::numberWithUnsigned(largest)->value(), OVNumber::Value(Integers::max()));
  EXPECT_EQ(OVNumber::numberWithUnsigned(largest + 1)->value(), OVNumber::Value(largest + 1));
  EXPECT_EQ(OVNumber::numberWithUnsigned(Naturals::max())->value(),
            OVNumber::Value(Naturals::max()));
}

TEST(Number, IntegersConvertAtTheEndsOfTheRange) {
  for (const std::int64_t value :
       {Integers::min(), std::int64_t{-1}, std::int64_t{0}, Integers::max()}) {
    const auto number = OVNumber::numberWithInteger(value);
    EXPECT_EQ(number->integerValue(), value);
    EXPECT_EQ(number->doubleValue(), static_cast<double>(value));
    EXPECT_EQ(number->boolValue(), value != 0);
  }
}

TEST(Number, UnsignedIntegersConvertToTheNearestEnd) {
  const auto largest = OVNumber::numberWithUnsigned(Naturals::max());
  EXPECT_EQ(largest->integerValue(), Integers::max());
  EXPECT_EQ(largest->doubleValue(), 18446744073709551616.0);
  EXPECT_TRUE(largest->boolValue());
}

TEST(Number, RealsAreRoundedTowardsZero) {
  EXPECT_EQ(integerOf(2.9), 2);
  EXPECT_EQ(integerOf(-2.9), -2);
  EXPECT_EQ(integerOf(-0.0), 0);
  EXPECT_EQ(integerOf(Reals::denorm_min()), 0);
}

TEST(Number, RealsOutOfRangeGiveTheNearestEnd) {
  EXPECT_EQ(integerOf(9223372036854775808.0), Integers::max());
  EXPECT_EQ(integerOf(9223372036854774784.0), 9223372036854774784);
  EXPECT_EQ(integerOf(-9223372036854775808.0), Integers::min());
  EXPECT_EQ(integerOf(-9223372036854777856.0), Integers::min());
  EXPECT_EQ(integerOf(Reals::infinity()), Integers::max());
  EXPECT_EQ(integerOf(-Reals::infinity()), Integers::min());
  EXPECT_EQ(integerOf(Reals::max()), Integers::max());
}

TEST(Number, NotANumberIsZeroAsAnInteger) {
  const auto number = OVNumber::numberWithDouble(Reals::quiet_NaN());
  EXPECT_EQ(number->integerValue(), 0);
  EXPECT_TRUE(std::isnan(number->doubleValue()));
}

TEST(Number, TruthValuesAreOneAndZero) {
  EXPECT_EQ(OVNumber::numberWithBool(true)->integerValue(), 1);
  EXPECT_EQ(OVNumber::numberWithBool(false)->integerValue(), 0);
  EXPECT_EQ(OVNumber::numberWithBool(true)->doubleValue(), 1.0);
  EXPECT_FALSE(OVNumber::numberWithBool(false)->boolValue());
}

TEST(Number, OnlyZeroIsFalse) {
  EXPECT_FALSE(OVNumber::numberWithInteger(0)->boolValue());
  EXPECT_TRUE(OVNumber::numberWithInteger(-1)->boolValue());
  EXPECT_FALSE(OVNumber::numberWithDouble(-0.0)->boolValue());
  EXPECT_TRUE(OVNumber::numberWithDouble(Reals::denorm_min())->boolValue());
}

}  // namespace
