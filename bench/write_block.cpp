// Writes the measured book as a data block, for the peers that read ours.

#include <cstdlib>
#include <fstream>

#include "library_book.h"

int main(int count, char** arguments) {
  if (count < 3) return 2;
  const auto persons = static_cast<std::uint32_t>(std::strtoul(arguments[1], nullptr, 10));
  const auto block = bench::libraryBook(persons)->saveToData();
  std::ofstream file(arguments[2], std::ios::binary);
  file.write(block->text().data(), static_cast<std::streamsize>(block->size()));
  return file.good() ? 0 : 1;
}
