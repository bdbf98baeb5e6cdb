// Reads a file of cards, which is in memory already, and prints one line of JSON.

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "meter.h"
#include "vcard_peer.h"

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: read_... FILE\n", stderr);
    return 2;
  }
  std::ifstream file(arguments[1], std::ios::binary);
  const std::string cards{std::istreambuf_iterator<char>(file), {}};
  std::size_t read = 0;
  const bench::Cost cost = bench::measure(
      3, [&] { read = bench::readCards(cards); }, [] { bench::forgetCards(); });
  std::printf("{\"reader\": \"%s\", \"read\": %zu, \"seconds\": %.6f, \"peak_bytes\": %zu}\n",
              bench::peerName(), read, cost.processorSeconds, cost.extraPeak);
  return read > 0 ? 0 : 1;
}
