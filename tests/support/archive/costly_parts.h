#pragma once

#include <vector>

#include "support/archive/costly_blocks.h"

/// What the files of costly blocks share.
namespace costly {

using Number = ArchiveBuilder::Number;
using Uid = ArchiveBuilder::Uid;

inline std::vector<Number> repeated(std::size_t many, Number number) {
  return std::vector<Number>(many, number);
}

inline Number fieldsOfClass(ArchiveBuilder& archive, const char* className, const char* key,
                            Number value) {
  return archive.fields({{key, value}, {"$class", archive.to(archive.classNamed(className))}});
}

}  // namespace costly

std::span<const CostlyBlock> costlyCopies();
std::span<const CostlyBlock> costlyContainers();
std::span<const CostlyBlock> costlyDepths();
