// costly_blocks FOLDER [MANY]   writes each costly block, small unless MANY is given, into a file

#include <cstdlib>
#include <string>

#include "support/archive/costly_blocks.h"
#include "support/processes/temporary_folder.h"

int main(int count, char** arguments) {
  if (count < 2) return EXIT_FAILURE;
  const std::size_t many = count > 2 ? std::stoul(arguments[2]) : 24;
  for (const CostlyBlock& each : costlyBlocks()) {
    ArchiveBuilder archive;
    writeFile(std::filesystem::path(arguments[1]) / each.name, each.make(archive, many)->text());
  }
  return EXIT_SUCCESS;
}
