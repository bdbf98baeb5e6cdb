// replay PATH...   runs a fuzzing target over files, and over all files in folders
//
// A finding ends the program; the last line tells in which file.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesIn(const fs::path& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(path)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

bool replay(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> content{std::istreambuf_iterator<char>(file), {}};
  if (!file) return false;
  std::cout << path.string() << std::endl;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  std::size_t done = 0;
  for (int i = 1; i < count; ++i) {
    const auto files = filesIn(arguments[i]);
    if (files.empty() || !std::ranges::all_of(files, replay)) {
      std::cerr << "replay: nothing to read in " << arguments[i] << '\n';
      return 2;
    }
    done += files.size();
  }
  std::cout << done << " files without a finding\n";
  return done == 0 ? 2 : 0;
}
