#include "platform/services/defaults_location.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace ov {

namespace {

constexpr std::size_t kLongestIdentifier = 200;

bool isAbsolute(const char* path) { return path != nullptr && *path == '/'; }

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

std::string homeOfUser() {
  std::array<char, 16384> buffer;
  passwd entry = {};
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0) return {};
  return found != nullptr && isAbsolute(found->pw_dir) ? found->pw_dir : std::string();
}

}  // namespace

bool isApplicationIdentifier(std::string_view name) {
  return !name.empty() && name.size() <= kLongestIdentifier && name != "." && name != ".." &&
         std::none_of(name.begin(), name.end(), [](char c) { return c == '/' || isControl(c); });
}

std::string defaultApplicationIdentifier() {
  const std::string_view name = program_invocation_short_name;
  return std::string(isApplicationIdentifier(name) ? name : "OVAddressBookSDK");
}

std::string defaultsDirectory(const std::string& applicationIdentifier,
                              const Environment& environment) {
  const char* configuration = environment("XDG_CONFIG_HOME");
  if (isAbsolute(configuration)) return std::string(configuration) + "/" + applicationIdentifier;
  const char* named = environment("HOME");
  const std::string home = isAbsolute(named) ? named : homeOfUser();
  return home.empty() ? home : home + "/.config/" + applicationIdentifier;
}

}  // namespace ov
