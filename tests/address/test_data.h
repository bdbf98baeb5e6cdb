#pragma once

#include <string>
#include <vector>

#include "support/table_file.h"

/// Rows of a table under data/, which is kept apart from the tables of the library.
inline std::vector<std::vector<std::string>> addressTable(const std::string& name) {
  return readTable(OV_ADDRESS_TEST_DATA "/" + name + ".txt");
}
