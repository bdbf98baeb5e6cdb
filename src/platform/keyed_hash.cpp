#include "platform/keyed_hash.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <random>

namespace ov::detail {

namespace {

std::uint64_t drawn() {
  std::random_device random;
  return std::uint64_t{random()} << 32 | random();
}

/// SipHash-1-3.
struct State {
  std::uint64_t v0, v1, v2, v3;

  void round() {
    v0 += v1;
    v2 += v3;
    v1 = std::rotl(v1, 13) ^ v0;
    v3 = std::rotl(v3, 16) ^ v2;
    v0 = std::rotl(v0, 32) + v3;
    v2 += v1;
    v3 = std::rotl(v3, 21) ^ v0;
    v1 = std::rotl(v1, 17) ^ v2;
    v2 = std::rotl(v2, 32);
  }
  void take(std::uint64_t word) {
    v3 ^= word;
    round();
    v0 ^= word;
  }
};

}  // namespace

std::size_t KeyedHash::operator()(std::string_view text) const {
  static const std::uint64_t k0 = drawn();
  static const std::uint64_t k1 = drawn();
  State state{k0 ^ 0x736F6D6570736575, k1 ^ 0x646F72616E646F6D, k0 ^ 0x6C7967656E657261,
              k1 ^ 0x7465646279746573};
  const std::uint64_t size = text.size();
  std::uint64_t word = 0;
  for (; text.size() >= sizeof word; text.remove_prefix(sizeof word)) {
    std::memcpy(&word, text.data(), sizeof word);
    state.take(word);
  }
  word = 0;
  if (!text.empty()) std::memcpy(&word, text.data(), text.size());
  state.take(word ^ size << 56);
  state.v2 ^= 0xFF;
  for (int i = 0; i < 3; ++i) state.round();
  return static_cast<std::size_t>(state.v0 ^ state.v1 ^ state.v2 ^ state.v3);
}

}  // namespace ov::detail
