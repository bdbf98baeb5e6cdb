// limited_read FILE BYTES registered|none   reads an archive with so much address space
//
// What a process needs once, whatever it reads, does not count. Exit status 0 when the space is
// enough, whether the archive is accepted or refused; prints how much was taken.

#include <malloc.h>
#include <sys/resource.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/class_table.h"
#include "support/archive/archive_builder.h"
#include "support/processes/temporary_folder.h"

namespace {

using Unarchive = OVRef<OVObject> (*)(const OVRef<OVData>&);

/// A line of /proc/self/status, in bytes.
std::size_t statusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::size_t kibibytes = 0;
    if (word == name && status >> kibibytes) return kibibytes << 10;
  }
  std::cerr << "no " << name << " in /proc/self/status\n";
  std::exit(2);
}

void limitAddressSpace(std::size_t bytes) {
  const rlimit limit{bytes, bytes};
  if (::setrlimit(RLIMIT_AS, &limit) != 0) {
    std::cerr << "setrlimit failed\n";
    std::exit(2);
  }
}

bool isAccepted(Unarchive unarchive, const OVRef<OVData>& data) {
  try {
    static_cast<void>(unarchive(data));
    return true;
  } catch (const OVInvalidArchive&) {
    return false;
  }
}

/// Builds one object of each class, and refuses one block.
void warmUp() {
  ArchiveBuilder archive;
  std::vector<ArchiveBuilder::Uid> objects;
  for (const OVClass* each : ov::libraryClasses())
    objects.push_back(archive.object(each->name, {}));
  const auto block = archive.archive(archive.arrayOf("NSArray", objects));
  if (!isAccepted(&OVKeyedUnarchiver::unarchiveObjectWithData, block) ||
      isAccepted(&OVKeyedUnarchiver::unarchiveObjectWithData, nullptr)) {
    std::cerr << "cannot read anything\n";
    std::exit(2);
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  const auto data = OVData::dataWithText(readFile(arguments[1]));
  const std::size_t bound = std::stoull(arguments[2]);
  const Unarchive unarchive = std::string(arguments[3]) == "none"
                                  ? &OVKeyedUnarchiver::unarchiveOpaqueObjectWithData
                                  : &OVKeyedUnarchiver::unarchiveObjectWithData;
  warmUp();
  ::malloc_trim(0);
  const std::size_t before = statusOf("VmSize:");
  limitAddressSpace(before + bound);
  bool accepted = false;
  try {
    accepted = isAccepted(unarchive, data);
  } catch (const std::bad_alloc&) {
    std::cerr << data->size() << " bytes take more than " << bound << '\n';
    return 1;
  }
  std::cout << data->size() << " bytes, " << (accepted ? "accepted" : "refused") << ", "
            << statusOf("VmPeak:") - before << " of " << bound << " bytes taken\n";
  return 0;
}
