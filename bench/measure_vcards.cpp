// Writes and reads the sample persons as vCards with another contacts library, and prints one line
// of JSON.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "meter.h"
#include "vcard_peer.h"

int main(int count, char** arguments) {
  const auto persons =
      static_cast<std::uint32_t>(count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 10000);
  std::string cards;
  const bench::Cost save = bench::measure(
      3, [&] { cards = bench::writeCards(persons); }, [] {});
  std::size_t read = 0;
  const bench::Cost restore = bench::measure(
      3, [&] { read = bench::readCards(cards); }, [] { bench::forgetCards(); });
  std::printf(
      "{\"codec\": \"%s\", \"persons\": %u, \"save_seconds\": %.6f, \"restore_seconds\": %.6f, "
      "\"block_bytes\": %zu}\n",
      bench::peerName(), persons, save.seconds, restore.seconds, cards.size());
  return read == persons ? 0 : 1;
}
