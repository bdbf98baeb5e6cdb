#include "meter.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace bench {

namespace {

std::size_t statusLine(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name)) return std::stoul(line.substr(name.size() + 1)) * 1024;
  }
  return 0;
}

}  // namespace

std::size_t residentBytes() { return statusLine("VmRSS"); }

std::size_t peakBytes() { return statusLine("VmHWM"); }

void resetPeak() { std::ofstream("/proc/self/clear_refs") << 5; }

void settle() { malloc_trim(0); }

}  // namespace bench
