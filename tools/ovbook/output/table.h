#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace ovbook {

/// Rows of cells whose columns line up on a terminal. Cells hold one line each.
class Table {
 public:
  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }

  /// One line a row, each after `indent`, columns two blanks apart, no blanks at the end of a line.
  /// A cell that is unusually wide does not widen its column: it pushes the rest of its row.
  void print(std::ostream& out, std::string_view indent = "") const;

 private:
  [[nodiscard]] std::vector<std::size_t> columnWidths() const;

  std::vector<std::vector<std::string>> rows_;
};

}  // namespace ovbook
