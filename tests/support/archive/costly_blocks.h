#pragma once

#include <cstddef>
#include <span>

#include <OVAddressBookSDK/data.h>

#include "support/archive/archive_builder.h"

/// An archive made to cost its reader as much memory as can be for its size.
struct CostlyBlock {
  const char* name;
  /// `many` is how often it does what it does.
  OVRef<OVData> (*make)(ArchiveBuilder& archive, std::size_t many);
};

std::span<const CostlyBlock> costlyBlocks();
