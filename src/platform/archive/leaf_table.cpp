#include "platform/archive/leaf_table.h"

#include <cstring>

namespace ov::detail {

namespace {

std::uint64_t mixed(std::uint64_t a, std::uint64_t b) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(a ^ 0x9E3779B97F4A7C15U) * (b ^ 0xD1B54A32D192ED03U);
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

/// `seed` differs from process to process, so that no book can be made of texts that collide.
std::uint32_t hashOf(std::string_view bytes, std::uint64_t seed) {
  std::uint64_t hash = seed ^ bytes.size();
  const char* at = bytes.data();
  std::size_t left = bytes.size();
  for (std::uint64_t word = 0; left > sizeof word; left -= sizeof word, at += sizeof word) {
    std::memcpy(&word, at, sizeof word);
    hash = mixed(hash, word);
  }
  std::uint64_t last = 0;
  std::memcpy(&last, at, left);
  hash = mixed(hash, last);
  return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

std::string_view textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

/// Slots are filled in the order of the hashes, so that growing the table walks both straight
/// through.
std::size_t LeafTable::firstSlot(std::uint32_t hash) const {
  return static_cast<std::size_t>(static_cast<std::uint64_t>(hash) * slots_.size() >> 32);
}

std::size_t LeafTable::nextSlot(std::size_t slot) const {
  return slot + 1 == slots_.size() ? 0 : slot + 1;
}

LeafTable::Result LeafTable::addLast() {
  if (used_ * 4 >= slots_.size() * 3) grow();
  const PlistWriter::Number last = writer_.count() - 1;
  const std::string_view bytes = textOf(writer_.bytesOf(last));
  const std::uint32_t hash = hashOf(bytes, reinterpret_cast<std::uintptr_t>(this));
  std::size_t at = firstSlot(hash);
  for (; slots_[at].next != 0; at = nextSlot(at)) {
    const PlistWriter::Number earlier = slots_[at].next - 1;
    if (slots_[at].hash == hash && textOf(writer_.bytesOf(earlier)) == bytes) {
      writer_.removeLast();
      return {earlier, false};
    }
  }
  slots_[at] = {hash, last + 1};
  ++used_;
  return {last, true};
}

void LeafTable::grow() {
  const GrowingArray<Slot> old = std::move(slots_);
  const std::size_t size = old.size() + old.size() / 2 + 256;
  std::memset(slots_.extend(size), 0, size * sizeof(Slot));
  for (const Slot& slot : old.span()) {
    if (slot.next == 0) continue;
    std::size_t at = firstSlot(slot.hash);
    while (slots_[at].next != 0) at = nextSlot(at);
    slots_[at] = slot;
  }
}

}  // namespace ov::detail
