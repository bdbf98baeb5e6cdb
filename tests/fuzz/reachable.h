#pragma once

#include <vector>

#include <OVAddressBookSDK/object.h>

/// Every object that shows in the graph, the root first.
std::vector<OVRef<OVObject>> reachable(const OVRef<OVObject>& root);

/// Lets the objects forget all they refer to, so that rings of them are destroyed. (Rings behind
/// what no object shows stay.)
void letGo(const std::vector<OVRef<OVObject>>& objects);
