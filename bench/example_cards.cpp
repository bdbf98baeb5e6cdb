#include "example_cards.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>

namespace bench {

namespace {

constexpr std::string_view kBegin = "BEGIN:VCARD";

std::string contentOf(const char* path) {
  std::ifstream file(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (text.find(kBegin) == std::string::npos) {
    std::fprintf(stderr, "%s holds no cards\n", path);
    std::exit(1);
  }
  return text;
}

std::vector<std::string_view> cardsOf(std::string_view text) {
  std::vector<std::string_view> cards;
  for (std::size_t at = text.find(kBegin); at != std::string_view::npos;) {
    const std::size_t next = text.find(kBegin, at + 1);
    cards.push_back(text.substr(at, next - at));
    at = next;
  }
  return cards;
}

}  // namespace

std::string exampleCards(const char* path, std::size_t count) {
  const std::string text = contentOf(path);
  const std::vector<std::string_view> cards = cardsOf(text);
  std::string all;
  all.reserve(count * (text.size() / cards.size() + 16));
  for (std::size_t i = 0; i < count; ++i) {
    const std::string_view card = cards[i % cards.size()];
    const std::size_t uid = card.find("\nUID:");
    const std::size_t end =
        uid == std::string_view::npos ? uid : card.find_first_of("\r\n", uid + 1);
    all += card.substr(0, end);
    if (end == std::string_view::npos) continue;
    all.append("-").append(std::to_string(i / cards.size())).append(card.substr(end));
  }
  return all;
}

}  // namespace bench
