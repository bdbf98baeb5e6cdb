#include "keyed_hash.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <random>

namespace ov::card {

namespace {

using Key = std::array<std::uint64_t, 2>;

const Key& key() {
  static const Key drawn = [] {
    std::random_device random;
    const auto draw = [&] { return std::uint64_t{random()} << 32 | random(); };
    return Key{draw(), draw()};
  }();
  return drawn;
}

/// SipHash with one round a word and three at the end.
class SipHash {
 public:
  explicit SipHash(const Key& k)
      : a_(k[0] ^ 0x736F6D6570736575),
        b_(k[1] ^ 0x646F72616E646F6D),
        c_(k[0] ^ 0x6C7967656E657261),
        d_(k[1] ^ 0x7465646279746573) {}

  void add(std::uint64_t word) {
    d_ ^= word;
    round();
    a_ ^= word;
  }

  [[nodiscard]] std::uint64_t end() {
    c_ ^= 0xFF;
    for (int i = 0; i < 3; ++i) round();
    return a_ ^ b_ ^ c_ ^ d_;
  }

 private:
  void round() {
    a_ += b_;
    b_ = std::rotl(b_, 13) ^ a_;
    a_ = std::rotl(a_, 32);
    c_ += d_;
    d_ = std::rotl(d_, 16) ^ c_;
    a_ += d_;
    d_ = std::rotl(d_, 21) ^ a_;
    c_ += b_;
    b_ = std::rotl(b_, 17) ^ c_;
    c_ = std::rotl(c_, 32);
  }

  std::uint64_t a_, b_, c_, d_;
};

}  // namespace

std::size_t KeyedHash::operator()(std::string_view text) const {
  SipHash hash(key());
  std::uint64_t word = 0;
  std::size_t at = 0;
  for (; at + sizeof word <= text.size(); at += sizeof word) {
    std::memcpy(&word, text.data() + at, sizeof word);
    hash.add(word);
  }
  word = 0;
  if (at < text.size()) std::memcpy(&word, text.data() + at, text.size() - at);
  hash.add(word ^ std::uint64_t{text.size()} << 56);
  return hash.end();
}

}  // namespace ov::card
