#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

/// The rows of a plain text file: one a line, columns apart by tabs.
inline std::vector<std::vector<std::string>> readTable(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(file, line);) {
    std::vector<std::string>& columns = rows.emplace_back();
    std::size_t start = 0;
    for (std::size_t tab; (tab = line.find('\t', start)) != std::string::npos; start = tab + 1)
      columns.push_back(line.substr(start, tab - start));
    columns.push_back(line.substr(start));
  }
  return rows;
}
