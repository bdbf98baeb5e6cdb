#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include <OVAddressBookSDK/data.h>

#include "support/archive/archive_builder.h"

/// A small archive that costs a careless reader much memory or time.
struct CostlyBlock {
  const char* name;
  /// `many` is how often it does what it does.
  OVRef<OVData> (*make)(ArchiveBuilder& archive, std::size_t many);
};

std::vector<CostlyBlock> costlyBlocks();
