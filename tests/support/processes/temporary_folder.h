#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// A new, empty folder, removed with all that is in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] std::string at(std::string_view name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

void writeFile(const std::filesystem::path& path, std::string_view content);
[[nodiscard]] std::string readFile(const std::filesystem::path& path);
