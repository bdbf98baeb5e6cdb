#pragma once

#include <vector>

#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/list.h>

namespace ov::qt {

/// These groups and all below them, each once and before those in it.
[[nodiscard]] std::vector<OVRef<IOVGroup>> withAllBelow(const OVList<IOVGroup>& groups);

}  // namespace ov::qt
