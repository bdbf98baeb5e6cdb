#pragma once

#include <string>

#include <OVAddressBookSDK/tag_manager.h>

namespace ovbook {

/// The tag store of that name, empty when nothing was stored under it. Throws `Failure` when
/// something else is.
[[nodiscard]] OVRef<OVTagManager> openTagStore(const std::string& store);

/// The person's tags, in order; empty when the person has none.
[[nodiscard]] OVList<OVString> tagsOf(const OVTagManager& tags, const OVString& personID);

}  // namespace ovbook
