#include "support/processes/own_mounts.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

void write(const char* path, const std::string& text) { std::ofstream(path) << text; }

/// Mounts of this process reach no other one from then on.
bool separateMounts() {
  const std::string user = std::to_string(::getuid());
  const std::string group = std::to_string(::getgid());
  if (::unshare(CLONE_NEWNS) != 0) {
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    write("/proc/self/setgroups", "deny");
    write("/proc/self/uid_map", user + " " + user + " 1");
    write("/proc/self/gid_map", group + " " + group + " 1");
  }
  return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

void setModes(const std::string& folder, unsigned ofFolders, unsigned ofFiles) {
  ::chmod(folder.c_str(), ofFolders);
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.is_directory()) {
      setModes(entry.path(), ofFolders, ofFiles);
    } else {
      ::chmod(entry.path().c_str(), ofFiles);
    }
  }
}

bool mountMemory(const std::string& folder, unsigned long flags, int bytes) {
  const std::string options = "mode=0700,size=" + std::to_string(bytes);
  return ::mount("none", folder.c_str(), "tmpfs", flags, options.c_str()) == 0;
}

}  // namespace

bool mountSmallDisk(const std::string& folder, int bytes) {
  return separateMounts() && mountMemory(folder, MS_NOSUID, bytes);
}

bool resizeSmallDisk(const std::string& folder, int bytes) {
  return mountMemory(folder, MS_NOSUID | MS_REMOUNT, bytes);
}

void makeReadOnly(const std::string& folder) {
  const char* path = folder.c_str();
  if (separateMounts() && ::mount(path, path, nullptr, MS_BIND, nullptr) == 0 &&
      ::mount("none", path, nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0) {
    return;
  }
  constexpr uid_t kNobody = 65534;
  setModes(folder, 0555, 0444);
  if (::geteuid() == 0 && ::seteuid(kNobody) != 0)
    throw std::runtime_error("cannot stop being root");
}

void makeWritable(const std::string& folder) { setModes(folder, 0755, 0644); }
