// Measures one codec on one size of book, in a process of its own, and prints one line of JSON.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "codec.h"
#include "meter.h"

namespace {

bench::Codec codecNamed(const char* name) {
  if (std::strcmp(name, "library") == 0) return bench::libraryCodec();
  if (std::strcmp(name, "cereal") == 0) return bench::cerealCodec();
  return bench::boostCodec();
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 4) {
    std::fprintf(stderr, "usage: measure_point library|cereal|boost PERSONS RUNS\n");
    return 2;
  }
  const bench::Codec codec = codecNamed(arguments[1]);
  const auto persons = static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10));
  const int runs = std::atoi(arguments[3]);

  std::shared_ptr<void> book = codec.build(persons);
  std::shared_ptr<void> block;
  std::size_t blockBytes = 0;
  const bench::Cost save = bench::measure(
      runs, [&] { block = codec.save(book, blockBytes); },
      [&, run = 0]() mutable {
        if (++run < runs) block.reset();
      });
  book.reset();

  std::size_t held = 0;
  const bench::Cost restore = bench::measure(
      runs, [&] { book = codec.restore(block); },
      [&, before = (bench::settle(), bench::residentBytes())] {
        bench::settle();
        if (held == 0) held = bench::residentBytes() - before;
        book.reset();
      });

  std::printf(
      "{\"codec\": \"%s\", \"persons\": %u, \"save_seconds\": %.6f, \"restore_seconds\": %.6f, "
      "\"block_bytes\": %zu, \"save_peak_bytes\": %zu, \"restore_peak_bytes\": %zu, "
      "\"restored_bytes\": %zu}\n",
      codec.name.c_str(), persons, save.seconds, restore.seconds, blockBytes, save.extraPeak,
      restore.extraPeak, held);
}
