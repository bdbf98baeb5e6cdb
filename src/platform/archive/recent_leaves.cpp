#include "platform/archive/recent_leaves.h"

#include <algorithm>
#include <span>
#include <utility>

#include "platform/archive/big_endian.h"

namespace ov::detail {

namespace {

/// The same on every machine, and never 0.
std::uint32_t leafHash(std::span<const std::byte> bytes) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = bytes.size();
  const auto mix = [&hash](std::uint64_t word) {
    hash = (hash ^ word) * kFactor;
    hash ^= hash >> 32;
  };
  for (; bytes.size() >= 8; bytes = bytes.subspan(8)) mix(loadAs<std::uint64_t>(bytes.data()));
  mix(loadBigEndian(bytes.data(), static_cast<unsigned>(bytes.size())));
  mix(0);  // short texts differ in few bits
  return static_cast<std::uint32_t>(hash) | 1U;
}

}  // namespace

/// Sets are in the order of the hashes, so that growing splits each in two.
RecentLeaves::Set& RecentLeaves::setOf(std::uint32_t hash) {
  return sets_[static_cast<std::size_t>(static_cast<std::uint64_t>(hash) * sets_.size() >> 32)];
}

RecentLeaves::Result RecentLeaves::add(PlistWriter::Number last) {
  const std::uint32_t hash = leafHash(writer_.lastBytes());
  Set& set = setOf(hash);
  for (const Leaf& leaf : set) {
    if (leaf.hash == hash && writer_.isLike(leaf.offset)) {
      writer_.removeLast();
      return {leaf.object, false};
    }
  }
  put(set, {hash, last, writer_.lastOffset()});
  if (++added_ == sets_.size() && added_ < kMaxSets) grow();
  return {last, true};
}

void RecentLeaves::put(Set& set, Leaf leaf) {
  std::shift_right(set.begin(), set.end(), 1);
  set.front() = leaf;
}

void RecentLeaves::grow() {
  const std::vector<Set> old = std::exchange(sets_, std::vector<Set>(sets_.size() * 4));
  for (const Set& set : old) {
    std::for_each(set.rbegin(), set.rend(), [this](const Leaf& leaf) {
      if (leaf.hash != 0) put(setOf(leaf.hash), leaf);
    });
  }
}

}  // namespace ov::detail
