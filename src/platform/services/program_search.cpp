#include "platform/services/program_search.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace ov {

namespace {

bool isProgram(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
}

}  // namespace

std::string findProgram(std::string_view name) {
  const char* variable = std::getenv("PATH");
  std::string_view folders = variable == nullptr ? "/bin:/usr/bin" : variable;
  while (!folders.empty()) {
    const auto end = std::min(folders.find(':'), folders.size());
    const std::string_view folder = folders.substr(0, end);
    folders.remove_prefix(std::min(end + 1, folders.size()));
    if (!folder.starts_with('/')) continue;
    std::string path = std::string(folder).append("/").append(name);
    if (isProgram(path)) return path;
  }
  return {};
}

}  // namespace ov
