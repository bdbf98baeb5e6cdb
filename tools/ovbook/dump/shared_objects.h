#pragma once

#include <unordered_set>

#include <OVAddressBookSDK/object.h>

namespace ovbook {

/// The objects of a graph that hold others and that more than one place refers to.
[[nodiscard]] std::unordered_set<const OVObject*> sharedObjectsOf(const OVRef<OVObject>& root);

}  // namespace ovbook
