#pragma once

#include <string>
#include <vector>

#include "output/table.h"

namespace ovbook {

/// One of several things below each other under one heading: a label, and lines.
struct Entry {
  std::string label;
  std::vector<std::string> lines;
};

/// Adds rows of two cells: the heading, in the first row only, and label and line, where the lines
/// of all entries begin in one column.
void addEntries(Table& table, const std::string& heading, const std::vector<Entry>& entries);

}  // namespace ovbook
