#include "meter.h"

#include <malloc.h>

#include <algorithm>
#include <ctime>
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

double processorSeconds() {
  return static_cast<double>(std::clock()) / static_cast<double>(CLOCKS_PER_SEC);
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace bench
