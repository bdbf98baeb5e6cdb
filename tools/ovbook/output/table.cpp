#include "output/table.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "output/display_width.h"

namespace ovbook {

namespace {

constexpr std::size_t kWidest = 50;
constexpr std::size_t kGap = 2;

}  // namespace

std::vector<std::size_t> Table::columnWidths() const {
  std::vector<std::size_t> widths;
  for (const auto& row : rows_) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::size_t width = displayWidth(row[column]);
      if (width <= kWidest) widths[column] = std::max(widths[column], width);
    }
  }
  return widths;
}

void Table::print(std::ostream& out, std::string_view indent) const {
  const std::vector<std::size_t> widths = columnWidths();
  for (const auto& row : rows_) {
    std::string line(indent);
    std::size_t missing = 0;
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::size_t width = displayWidth(row[column]);
      if (width > 0) line += std::string(std::exchange(missing, 0), ' ') + row[column];
      missing += std::max(widths[column], width) - width + kGap;
    }
    out << line << '\n';
  }
}

}  // namespace ovbook
