#include "preferences.h"

#include <OVAddressBookSDK/user_defaults.h>

#include "session.h"

namespace ovbook {

void requireStoredPreferences(const std::string& what) {
  if (OVUserDefaults::standardUserDefaults()->synchronize()) return;
  throw Failure(what + " could not be stored: the preferences cannot be written (see the log)");
}

}  // namespace ovbook
