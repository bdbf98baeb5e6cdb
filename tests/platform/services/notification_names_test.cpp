#include <OVAddressBookSDK/notification_names.h>

#include "support/printers.h"

namespace {

struct Row {
  const OVString* constant;
  const char* text;
};

class NotificationNames : public testing::TestWithParam<Row> {};

TEST_P(NotificationNames, HoldTheirString) { EXPECT_EQ(*GetParam().constant, GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    All, NotificationNames,
    testing::Values(
        Row{&OVPersonChangeNameNotification, "OVPersonChangeNameNotification"},
        Row{&OVPersonChangePhoneNotification, "OVPersonChangePhoneNotification"},
        Row{&OVPersonChangeEmailNotification, "OVPersonChangeEmailNotification"},
        Row{&OVPersonChangeAllPersonNotification, "OVPersonChangeAllPersonNotification"},
        Row{&OVChangeNameNotification_NameKey, "OVChangeNameNotification_NewNameKey"},
        Row{&OVChangeNameNotification_PersonKey, "OVChangeNameNotification_PersonKey"},
        Row{&OVChangeNameNotification_PhoneKey, "OVChangeNameNotification_PhoneKey"},
        Row{&OVChangeNameNotification_EmailKey, "OVChangeNameNotification_EmailKey"},
        Row{&OV_LastNmaeFrontChange_notification, "OV_LastNmaeFrontChange_notification"}),
    [](const auto& row) { return row.param.text; });

}  // namespace
