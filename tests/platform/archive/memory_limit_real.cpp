#include <unistd.h>

#include <string>

#include "platform/archive/memory_limit.h"
#include "support/processes/child_process.h"
#include "support/processes/temporary_folder.h"

// A new process reads the archive, with no more address space than that.
testing::AssertionResult readsInMemory(const OVRef<OVData>& block, Classes known,
                                       std::size_t bytes) {
  const TemporaryFolder folder;
  const std::string file = folder.at("block");
  writeFile(file, block->text());
  const std::string limit = std::to_string(bytes);
  const char* classes = known == Classes::none ? "none" : "registered";
  ChildProcess reader([&] {
    ::execl(OV_LIMITED_READ, OV_LIMITED_READ, file.c_str(), limit.c_str(), classes, nullptr);
    return false;
  });
  if (reader.succeeded()) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << block->size() << " bytes cannot be read in " << bytes << " bytes of memory";
}
