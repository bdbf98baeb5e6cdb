// Entries are in a vector in the order of their keys' insertion; a table of positions, made once
// there are more than a few, finds them by hash. Removed entries leave gaps until the table is
// rebuilt.

#include <OVAddressBookSDK/dictionary.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <new>
#include <span>
#include <stdexcept>
#include <utility>

#include "platform/dispose.h"
#include "platform/keyed_hash.h"

namespace ov::detail {

namespace {

/// Up to this many slots a look-up walks them; beyond, it hashes.
constexpr std::size_t kSmall = 8;

constexpr std::size_t kMaxEntries = std::numeric_limits<std::uint32_t>::max() / 4;

/// How many slots there are for so many entries, at most three quarters of them taken.
std::size_t slotsFor(std::size_t entries) {
  if (entries > kMaxEntries) throw std::length_error("OVDictionary: too many entries");
  return entries <= kSmall ? 0 : std::bit_ceil(entries + entries / 2);
}

std::size_t hashOf(std::string_view key) { return KeyedHash()(key); }

}  // namespace

DictionaryObject::~DictionaryObject() {
  for (Entry& entry : entries_) dispose(std::move(entry.value));
  for (Entry& entry : repeated_) dispose(std::move(entry.value));
}

const DictionaryObject::Entry* DictionaryObject::find(std::string_view key) const {
  if (slots_.empty()) {
    for (const Entry& entry : entries_) {
      if (!entry.key.isNull() && entry.key.view() == key) return &entry;
    }
    return nullptr;
  }
  const std::uint32_t position = slots_[slotOf(key)];
  return position == 0 ? nullptr : &entries_[position - 1];
}

/// The slot that holds `key`, or the empty one where it would go.
std::size_t DictionaryObject::slotOf(std::string_view key) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hashOf(key) & mask;
  for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const OVString& held = entries_[slots_[slot] - 1].key;
    if (!held.isNull() && held.view() == key) break;
  }
  return slot;
}

void DictionaryObject::set(const OVString& key, OVRef<OVObject> value) {
  if (key.isNull()) throw std::invalid_argument("OVDictionary: a dictionary takes no null key");
  if (value == nullptr) {
    throw std::invalid_argument("OVDictionary: a dictionary takes no null value (key \"" +
                                key.str() + "\")");
  }
  if (const Entry* entry = find(key)) {
    entries_[static_cast<std::size_t>(entry - entries_.data())].value = std::move(value);
  } else {
    append(key, std::move(value));
  }
}

void DictionaryObject::add(const OVString& key, OVRef<OVObject> value) {
  if (find(key) == nullptr) append(key, std::move(value));
}

void DictionaryObject::assign(std::vector<Entry> entries) {
  std::vector<std::uint32_t> slots(slotsFor(entries.size()));
  const std::vector<Entry> replaced = std::exchange(entries_, std::move(entries));
  const std::vector<Entry> replacedToo = std::exchange(repeated_, {});
  slots_.swap(slots);
  live_ = 0;
  ++changes_;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    Entry& entry = entries_[i];
    if (isFirst(i)) {
      ++live_;
    } else {
      repeated_.push_back(std::exchange(entry, {}));
    }
  }
}

/// Whether no earlier entry has the key; from then on it is found under it.
bool DictionaryObject::isFirst(std::size_t position) {
  const OVString& key = entries_[position].key;
  if (slots_.empty()) {
    const auto earlier = std::span(entries_).first(position);
    return std::ranges::find(earlier, key, &Entry::key) == earlier.end();
  }
  std::uint32_t& slot = slots_[slotOf(key)];
  if (slot != 0) return false;
  slot = static_cast<std::uint32_t>(position + 1);
  return true;
}

void DictionaryObject::append(const OVString& key, OVRef<OVObject> value) {
  if (entries_.size() >= kMaxEntries) throw std::length_error("OVDictionary: too many entries");
  entries_.push_back({key, std::move(value)});
  ++live_;
  ++changes_;
  if (entries_.size() <= kSmall && slots_.empty()) return;
  if (entries_.size() * 4 <= slots_.size() * 3) {
    slots_[slotOf(key)] = static_cast<std::uint32_t>(entries_.size());
    return;
  }
  try {
    rebuild();
  } catch (const std::bad_alloc&) {
    entries_.pop_back();
    --live_;
    throw;
  }
}

bool DictionaryObject::erase(std::string_view key) {
  const Entry* found = find(key);
  if (found == nullptr) return false;
  std::erase_if(repeated_, [key](const Entry& each) { return each.key == key; });
  // The slot stays taken by an entry without a key, so that probing goes on past it.
  Entry& entry = entries_[static_cast<std::size_t>(found - entries_.data())];
  entry.key = nullptr;
  const OVRef<OVObject> removed = std::exchange(entry.value, nullptr);
  --live_;
  ++changes_;
  if (live_ * 2 >= entries_.size() || entries_.size() <= kSmall) return true;
  try {
    rebuild();
  } catch (const std::bad_alloc&) {  // the next one tries again
  }
  return true;
}

void DictionaryObject::clear() {
  const std::vector<Entry> removed = std::exchange(entries_, {});
  const std::vector<Entry> removedToo = std::exchange(repeated_, {});
  slots_.clear();
  live_ = 0;
  ++changes_;
}

/// Drops removed entries and builds the hash table again. Without memory for that nothing changes.
void DictionaryObject::rebuild() {
  const std::size_t room = std::max(entries_.capacity(), entries_.size());
  std::vector<std::uint32_t> slots(slotsFor(room));
  std::erase_if(entries_, [](const Entry& entry) { return entry.key.isNull(); });
  slots_.swap(slots);
  if (slots_.empty()) return;
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    std::size_t slot = hashOf(entries_[i].key) & mask;
    while (slots_[slot] != 0) slot = (slot + 1) & mask;
    slots_[slot] = static_cast<std::uint32_t>(i + 1);
  }
}

}  // namespace ov::detail
