#include "ovbook_test.h"

#include <algorithm>
#include <filesystem>

namespace {

constexpr const char* kPreferences = "preferences";

}  // namespace

Outcome OvbookTest::ovbookIn(Surroundings surroundings, const Arguments& arguments) {
  std::vector<std::string> environment{"HOME=" + path("home"),
                                       "XDG_CONFIG_HOME=" + path(kPreferences),
                                       "LC_ALL=", "LC_MESSAGES=", "LANG=en_US.UTF-8"};
  environment.insert(environment.end(), surroundings.environment.begin(),
                     surroundings.environment.end());
  surroundings.environment = std::move(environment);
  std::vector<std::string> command{OVBOOK_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return runProgram(command, surroundings);
}

std::string OvbookTest::file(std::string_view name, std::string_view content) const {
  writeFile(path(name), content);
  return path(name);
}

std::string OvbookTest::bookFile(const OVAddressBookGeneral& book) const {
  return file("book", book.saveToData()->text());
}

std::vector<std::string> OvbookTest::names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
    if (entry.path().filename() != kPreferences) names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

Outcome failure(const std::string& message) { return {2, "", "ovbook: " + message + "\n"}; }

Outcome success(const std::string& out) { return {0, out, ""}; }

std::string card(std::string_view lines) {
  return "BEGIN:VCARD\nVERSION:4.0\n" + std::string(lines) + "END:VCARD\n";
}
