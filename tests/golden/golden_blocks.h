#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/data.h>

/// A stored block, and its content as `archiveListing` tells it.
struct GoldenBlock {
  std::string name;
  OVRef<OVData> block;
  std::string content;

  friend void PrintTo(const GoldenBlock& golden, std::ostream* stream) { *stream << golden.name; }
};

/// All blocks of a folder by name, whether or not a graph is still known for them. Throws when one
/// has no content beside it.
std::vector<GoldenBlock> goldenBlocks(const std::filesystem::path& folder);

/// Paths of a block and of its content.
std::filesystem::path blockPath(const std::filesystem::path& folder, std::string_view name);
std::filesystem::path contentPath(const std::filesystem::path& folder, std::string_view name);
