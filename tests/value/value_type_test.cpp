#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/value_type.h>

#include "support/archive/archived_fields.h"
#include "support/values.h"

namespace {

static_assert(std::is_same_v<std::underlying_type_t<OVValueType>, std::int32_t>);

struct Row {
  std::int32_t code;
  OVValueType type;
  const char* name;
};

class ValueTypeCode : public testing::TestWithParam<Row> {};

TEST_P(ValueTypeCode, IsTheNumberOfItsName) { EXPECT_EQ(GetParam().type, GetParam().code); }

TEST_P(ValueTypeCode, IsCarriedThroughAnArchive) {
  const auto value = textValue("datum", GetParam().type);
  EXPECT_EQ(ArchivedForm(value).integer("type"), GetParam().code);
  EXPECT_EQ(restored<OVSingleValue>(value)->type(), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ValueTypeCode,
    testing::Values(Row{0, OVValueTypeString, "String"}, Row{3, OVValueTypeDate, "Date"},
                    Row{5, OVValueTypeImage, "Image"}, Row{6, OVValueTypePhone, "Phone"},
                    Row{7, OVValueTypeEmail, "Email"}, Row{8, OVValueTypePersonName, "PersonName"},
                    Row{9, OVValueTypeAddress, "Address"}, Row{10, OVValueTypeTags, "Tags"},
                    Row{11, OVValueTypeNote, "Note"}, Row{12, OVValueTypeMultiple, "Multiple"},
                    Row{13, OVValueTypeInstantMessage, "InstantMessage"}),
    [](const auto& row) { return std::string(row.param.name); });

class AnyCode : public testing::TestWithParam<std::int32_t> {};

TEST_P(AnyCode, IsKeptAsANumber) {
  const auto value = textValue("datum", static_cast<OVValueType>(GetParam()));
  EXPECT_EQ(value->type(), GetParam());
  EXPECT_EQ(restored<OVSingleValue>(value)->type(), GetParam());
  EXPECT_EQ(ArchivedForm(value).integer("type"), static_cast<std::uint32_t>(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Codes, AnyCode,
                         testing::Values(1, 2, 4, 14, 1000, -1, -12, INT32_MAX, INT32_MIN));

}  // namespace
