#pragma once

#include <span>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/object.h>

namespace ov::detail {

/// What `OVKeyedUnarchiver::unarchiveObjectWithData` says, where objects of the library's classes
/// with these names are made as these say.
[[nodiscard]] OVRef<OVObject> unarchivedWith(const OVRef<OVData>& data,
                                             std::span<const OVClass* const> instead);

}  // namespace ov::detail
