#pragma once

#include <vector>

#include <OVAddressBookSDK/object.h>

/// Every object that shows in the graph, the root first.
std::vector<OVRef<OVObject>> reachable(const OVRef<OVObject>& root);

/// Lets the objects forget all they refer to, so that rings of them are destroyed. (Rings after
/// what no object shows stay.)
void release(const std::vector<OVRef<OVObject>>& objects);
