#include "output/table.h"

#include <sstream>

#include <gtest/gtest.h>

namespace {

std::string printed(const std::vector<std::vector<std::string>>& rows, std::string_view indent) {
  ovbook::Table table;
  for (const auto& row : rows) table.add(row);
  std::ostringstream out;
  table.print(out, indent);
  return out.str();
}

}  // namespace

TEST(Table, ColumnsAreTwoBlanksApart) {
  EXPECT_EQ(printed({{"a", "bb", "c"}, {"aaa", "b", "c"}}, ""), "a    bb  c\naaa  b   c\n");
}

TEST(Table, LinesEndWithoutBlanks) {
  EXPECT_EQ(printed({{"a", "b"}, {"aaa", ""}, {"", ""}}, ""), "a    b\naaa\n\n");
}

TEST(Table, RowsMayHaveFewerCells) {
  EXPECT_EQ(printed({{"a"}, {"bb", "c", "d"}, {}}, ""), "a\nbb  c  d\n\n");
}

TEST(Table, EveryLineIsIndented) {
  EXPECT_EQ(printed({{"a", "b"}, {"c", "d"}}, "  "), "  a  b\n  c  d\n");
}

TEST(Table, AVeryWideCellPushesItsOwnRowOnly) {
  const std::string wide(51, 'w');
  EXPECT_EQ(printed({{wide, "x"}, {"a", "y"}}, ""), wide + "  x\na  y\n");
  const std::string bearable(50, 'w');
  EXPECT_EQ(printed({{bearable, "x"}, {"a", "y"}}, ""),
            bearable + "  x\na" + std::string(51, ' ') + "y\n");
}

TEST(Table, NoRowsGiveNoLines) { EXPECT_EQ(printed({}, "  "), ""); }
