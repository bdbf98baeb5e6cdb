// archive_blocks write FOLDER   writes a block and its listing for each sample graph
// archive_blocks list FILE      prints the listing of what is read from an archive
// archive_blocks rewrite FILE OUT   reads an archive and writes it again
//
// A refused archive gives exit status 3 and the reason on standard error.

#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/archive/sample_graphs.h"
#include "support/archive/archive_listing.h"
#include "support/memory/leaks_tolerated.h"

namespace {

void write(const std::string& path, std::string_view content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

OVRef<OVObject> read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  return OVKeyedUnarchiver::unarchiveObjectWithData(OVData::dataWithText(content));
}

OVRef<OVData> archiveOf(const OVRef<OVObject>& object) {
  return OVKeyedArchiver::archivedDataWithRootObject(object);
}

/// What is listed was read back, so that opaque objects are in it where others will find them.
void writeSamples(const std::string& folder) {
  for (const SampleGraph& each : sampleGraphs()) {
    const auto block = archiveOf(each.make());
    write(folder + "/" + each.name + ".plist", block->text());
    write(folder + "/" + each.name + ".txt",
          archiveListing(OVKeyedUnarchiver::unarchiveObjectWithData(block)));
  }
}

}  // namespace

int main(int count, char** arguments) {
  // Archives may hold rings.
  const LeaksTolerated tolerated;
  const std::string command = count > 2 ? arguments[1] : "";
  try {
    if (command == "write") {
      writeSamples(arguments[2]);
    } else if (command == "list") {
      std::cout << archiveListing(read(arguments[2]));
    } else if (command == "rewrite" && count > 3) {
      write(arguments[3], archiveOf(read(arguments[2]))->text());
    } else {
      std::cerr << "usage: archive_blocks write FOLDER | list FILE | rewrite FILE OUT\n";
      return 2;
    }
  } catch (const OVInvalidArchive& error) {
    std::cerr << error.what() << '\n';
    return 3;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
