#include "show/entry.h"

#include <algorithm>
#include <utility>

#include "output/display_width.h"

namespace ovbook {

namespace {

constexpr std::size_t kColumnGap = 2;

std::size_t widthOfLabels(const std::vector<Entry>& entries) {
  std::size_t width = 0;
  for (const Entry& entry : entries) width = std::max(width, displayWidth(entry.label));
  return width == 0 ? 0 : width + kColumnGap;
}

}  // namespace

void addEntries(Table& table, const std::string& heading, const std::vector<Entry>& entries) {
  const std::size_t width = widthOfLabels(entries);
  std::string headingCell = heading;
  for (const Entry& entry : entries) {
    std::string label = entry.label;
    for (const std::string& line : entry.lines) {
      std::string cell = std::exchange(label, "");
      if (!line.empty()) cell = padded(cell, width).append(line);
      table.add({std::exchange(headingCell, ""), std::move(cell)});
    }
  }
}

}  // namespace ovbook
