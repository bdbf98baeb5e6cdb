#pragma once

#include <cstddef>

#include <OVAddressBookSDK/data.h>

/// An archive of single values inside each other, as many as `depth` (at most 20), each with more
/// than `keys` keys. Their keys and values are the same bytes of the block, so that each costs it
/// next to nothing.
OVRef<OVData> overlappingObjects(std::size_t keys, std::size_t depth);
