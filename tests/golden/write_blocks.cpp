// write_golden_blocks FOLDER   writes a block and its content for each graph that FOLDER lacks
//
// Stored blocks are promises to those who have such files: this program leaves them alone.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "golden/golden_blocks.h"
#include "golden/golden_graphs.h"
#include "support/archive/archive_listing.h"
#include "support/memory/leaks_tolerated.h"

namespace {

void write(const std::filesystem::path& path, std::string_view content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

void writeMissing(const std::filesystem::path& folder) {
  for (const GoldenGraph& graph : goldenGraphs()) {
    if (exists(blockPath(folder, graph.name))) continue;
    const auto block = OVKeyedArchiver::archivedDataWithRootObject(graph.make());
    write(contentPath(folder, graph.name),
          archiveListing(OVKeyedUnarchiver::unarchiveObjectWithData(block)));
    write(blockPath(folder, graph.name), block->text());
    std::cout << graph.name << '\n';
  }
}

}  // namespace

int main(int count, char** arguments) {
  const LeaksTolerated tolerated;  // some graphs are rings
  if (count != 2) {
    std::cerr << "usage: write_golden_blocks FOLDER\n";
    return 2;
  }
  try {
    writeMissing(arguments[1]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
