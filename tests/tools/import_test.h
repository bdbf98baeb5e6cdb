#pragma once

#include <initializer_list>
#include <string>

#include "ovbook_test.h"

/// Imports cards into a file "book".
class Import : public OvbookTest {
 protected:
  Outcome importFiles(Arguments files) {
    files.insert(files.begin(), "import");
    files.insert(files.end(), {"-o", path("book")});
    return ovbook(files);
  }

  std::string cardsOf(std::string_view name, std::initializer_list<std::string> cards) {
    std::string all;
    for (const std::string& each : cards) all += each;
    return file(name, all);
  }

  /// IDs and names of the imported persons.
  std::string list() { return ovbook({"list", path("book")}).out; }
};

inline std::string person(const std::string& ID) {
  return card("UID:" + ID + "\nN:;" + ID + ";;;\n");
}
