#include "support/archive/costly_blocks.h"

#include "support/archive/costly_parts.h"

std::vector<CostlyBlock> costlyBlocks() {
  std::vector<CostlyBlock> all;
  for (const auto part : {costlyCopies(), costlyContainers(), costlyDepths()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}
