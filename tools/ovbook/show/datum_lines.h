#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/object.h>

namespace ovbook {

/// A datum of any class as lines for people, at least one, safe to print. What belongs to the datum
/// without being its text is in brackets.
[[nodiscard]] std::vector<std::string> datumLines(const OVRef<OVObject>& datum);

}  // namespace ovbook
