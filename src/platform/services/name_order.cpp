#include "platform/services/name_order.h"

#include <OVAddressBookSDK/notification_center.h>
#include <OVAddressBookSDK/notification_names.h>
#include <OVAddressBookSDK/user_defaults.h>

namespace ov {

namespace {

// Stored in the user defaults of every user: do not change.
constexpr OVString kLastNameInFrontKey(detail::kConstant<"l_n_f">);

}  // namespace

bool lastNameInFront() {
  return OVUserDefaults::standardUserDefaults()->boolForKey(kLastNameInFrontKey);
}

void setLastNameInFront(bool flag) {
  const auto defaults = OVUserDefaults::standardUserDefaults();
  defaults->setBoolForKey(flag, kLastNameInFrontKey);
  defaults->synchronize();
  OVNotificationCenter::defaultCenter()->postNotificationName(OV_LastNmaeFrontChange_notification);
}

}  // namespace ov
