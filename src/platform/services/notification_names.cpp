#include <OVAddressBookSDK/notification_names.h>

using ov::detail::kConstant;

constexpr OVString OVPersonChangeNameNotification(kConstant<"OVPersonChangeNameNotification">);
constexpr OVString OVPersonChangePhoneNotification(kConstant<"OVPersonChangePhoneNotification">);
constexpr OVString OVPersonChangeEmailNotification(kConstant<"OVPersonChangeEmailNotification">);
constexpr OVString OVPersonChangeAllPersonNotification(
    kConstant<"OVPersonChangeAllPersonNotification">);

constexpr OVString OVChangeNameNotification_NameKey(
    kConstant<"OVChangeNameNotification_NewNameKey">);
constexpr OVString OVChangeNameNotification_PersonKey(
    kConstant<"OVChangeNameNotification_PersonKey">);
constexpr OVString OVChangeNameNotification_PhoneKey(
    kConstant<"OVChangeNameNotification_PhoneKey">);
constexpr OVString OVChangeNameNotification_EmailKey(
    kConstant<"OVChangeNameNotification_EmailKey">);

constexpr OVString OV_LastNmaeFrontChange_notification(
    kConstant<"OV_LastNmaeFrontChange_notification">);
