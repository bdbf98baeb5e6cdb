#pragma once

#include <vector>

#include <OVAddressBookSDK/object.h>

/// Asks each object for all that it can tell. What it tells is not looked at: nothing may go wrong.
void useObjects(const std::vector<OVRef<OVObject>>& objects);
