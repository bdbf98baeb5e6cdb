// measure_codec FILE COUNT: takes the cards of the file, repeated, apart with our codec, and with
// libebook-contacts where that is installed. Prints one line of JSON for each.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "codec/card_reader.h"
#include "example_cards.h"
#include "meter.h"
#ifdef OV_HAS_EBOOK
#include "vcard_peer.h"
#endif

namespace {

class NoProblems final : public ov::card::Problems {
 public:
  void error(std::size_t /*line*/, std::string_view /*reason*/) override {}
  void warning(std::size_t /*line*/, std::string_view /*reason*/) override {}
};

/// The values of all lines, so that each is decoded; how many bytes they have.
std::size_t readCards(const std::string& text) {
  NoProblems problems;
  ov::card::CardReader reader(text, problems);
  std::size_t size = 0;
  while (const ov::card::Card* const card = reader.next()) {
    for (const ov::card::Line& line : card->lines) size += line.text().size();
  }
  return size;
}

void print(const char* name, std::size_t cards, const bench::Cost& cost) {
  std::printf("{\"codec\": \"%s\", \"cards\": %zu, \"seconds\": %.6f, \"peak_bytes\": %zu}\n", name,
              cards, cost.seconds, cost.extraPeak);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("usage: measure_codec FILE COUNT\n", stderr);
    return 2;
  }
  const std::size_t cards = std::strtoul(arguments[2], nullptr, 10);
  const std::string text = bench::exampleCards(arguments[1], cards);
  std::size_t size = 0;
  const bench::Cost own = bench::measure(
      5, [&] { size = readCards(text); }, [] {});
  print("OVAddressBookVCard", cards, own);
#ifdef OV_HAS_EBOOK
  std::size_t read = 0;
  const bench::Cost peer = bench::measure(
      5, [&] { read = bench::readCards(text); }, [] { bench::forgetCards(); });
  print(bench::peerName(), read, peer);
#endif
  return size > 0 ? 0 : 1;
}
