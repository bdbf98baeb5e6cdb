#include "platform/archive/leaf_table.h"

#include <cstring>

namespace ov::detail {

namespace {

std::uint64_t mixed(std::uint64_t a, std::uint64_t b) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(a ^ 0x9E3779B97F4A7C15U) * (b ^ 0xD1B54A32D192ED03U);
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

std::string_view textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::uint8_t tagOf(LeafTable::Hash hash) { return static_cast<std::uint8_t>(hash | 0x80U); }

}  // namespace

LeafTable::Hash LeafTable::hashOf(std::string_view bytes) const {
  // The address differs from process to process, so that no book can be made of texts that collide.
  std::uint64_t hash = reinterpret_cast<std::uintptr_t>(this) ^ bytes.size();
  const char* at = bytes.data();
  std::size_t left = bytes.size();
  for (std::uint64_t word = 0; left > sizeof word; left -= sizeof word, at += sizeof word) {
    std::memcpy(&word, at, sizeof word);
    hash = mixed(hash, word);
  }
  std::uint64_t last = 0;
  if (left != 0) std::memcpy(&last, at, left);
  hash = mixed(hash, last);
  return static_cast<Hash>(hash ^ hash >> 32);
}

/// Slots are filled in the order of the hashes, so that growing the table walks both straight
/// through.
std::size_t LeafTable::firstSlot(Hash hash) const {
  return static_cast<std::size_t>(static_cast<std::uint64_t>(hash) * slots_.size() >> 32);
}

std::size_t LeafTable::nextSlot(std::size_t slot) const {
  return slot + 1 == slots_.size() ? 0 : slot + 1;
}

/// The slot with this hash whose object matches, or else the free one where it belongs.
template <class Matches>
std::size_t LeafTable::find(Hash hash, Matches matches) const {
  const std::uint8_t tag = tagOf(hash);
  std::size_t at = firstSlot(hash);
  for (; tags_[at] != 0; at = nextSlot(at)) {
    if (tags_[at] == tag && slots_[at].hash == hash && matches(slots_[at].object)) return at;
  }
  return at;
}

LeafTable::Result LeafTable::addLast() {
  return addLast(hashOf(textOf(writer_.bytesOf(writer_.count() - 1))));
}

LeafTable::Result LeafTable::addLast(Hash hash) {
  if (used_ * 4 >= slots_.size() * 3) grow();
  const PlistWriter::Number last = writer_.count() - 1;
  const std::string_view bytes = textOf(writer_.bytesOf(last));
  const std::size_t at = find(
      hash, [&](PlistWriter::Number earlier) { return textOf(writer_.bytesOf(earlier)) == bytes; });
  if (tags_[at] != 0) {
    writer_.removeLast();
    return {slots_[at].object, false};
  }
  slots_[at] = {hash, last};
  tags_[at] = tagOf(hash);
  ++used_;
  return {last, true};
}

void LeafTable::touchTag(Hash hash) const { __builtin_prefetch(&tags_[firstSlot(hash)]); }

void LeafTable::touchSlot(Hash hash) const {
  const std::uint8_t tag = tagOf(hash);
  std::size_t at = firstSlot(hash);
  while (tags_[at] != 0 && tags_[at] != tag) at = nextSlot(at);
  __builtin_prefetch(&slots_[at], 1);
}

void LeafTable::touchOffset(Hash hash) const {
  const std::size_t at = find(hash, [](PlistWriter::Number) { return true; });
  if (tags_[at] != 0) writer_.touchOffset(slots_[at].object);
}

void LeafTable::touchBytes(Hash hash) const {
  const std::size_t at = find(hash, [](PlistWriter::Number) { return true; });
  if (tags_[at] != 0) writer_.touchBytes(slots_[at].object);
}

void LeafTable::reset() {
  tags_.reset();
  slots_.reset();
}

void LeafTable::grow() {
  const GrowingArray<Slot> oldSlots = std::move(slots_);
  const GrowingArray<std::uint8_t> oldTags = std::move(tags_);
  const std::size_t size = oldSlots.size() + oldSlots.size() / 2 + 256;
  slots_.extend(size);
  std::memset(tags_.extend(size), 0, size);
  for (std::size_t i = 0; i < oldSlots.size(); ++i) {
    if (oldTags[i] == 0) continue;
    std::size_t at = firstSlot(oldSlots[i].hash);
    while (tags_[at] != 0) at = nextSlot(at);
    slots_[at] = oldSlots[i];
    tags_[at] = oldTags[i];
  }
}

}  // namespace ov::detail
