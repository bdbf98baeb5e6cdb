#include "golden/golden_blocks.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

using std::filesystem::path;

constexpr std::string_view kBlock = ".plist";
constexpr std::string_view kContent = ".txt";

std::string contentOf(const path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

path blockPath(const path& folder, std::string_view name) {
  return folder / std::string(name).append(kBlock);
}

path contentPath(const path& folder, std::string_view name) {
  return folder / std::string(name).append(kContent);
}

std::vector<GoldenBlock> goldenBlocks(const path& folder) {
  std::vector<GoldenBlock> blocks;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != kBlock) continue;
    const std::string name = entry.path().stem().string();
    blocks.push_back({name, OVData::dataWithText(contentOf(entry.path())),
                      contentOf(contentPath(folder, name))});
  }
  std::ranges::sort(blocks, {}, &GoldenBlock::name);
  return blocks;
}
