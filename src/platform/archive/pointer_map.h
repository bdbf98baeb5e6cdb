#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/archive/growing_array.h"

namespace ov::detail {

/// Numbers given to addresses.
class PointerMap {
 public:
  struct Entry {
    const void* address;
    std::uint32_t number;
  };

  /// The entry of an address that is not null; made with number 0 when there is none. Valid until
  /// the next call.
  struct Result {
    Entry& entry;
    bool isNew;
  };
  Result at(const void* address) {
    if (used_ * 4 >= slots_.size() * 3) grow();
    Entry& entry = slots_[slotOf(address)];
    const bool isNew = entry.address == nullptr;
    if (isNew) {
      entry = {address, 0};
      ++used_;
    }
    return {entry, isNew};
  }

 private:
  [[nodiscard]] std::size_t slotOf(const void* address) const {
    const auto hash = reinterpret_cast<std::uintptr_t>(address) * 0x9E3779B97F4A7C15U;
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = static_cast<std::size_t>(hash >> 32) & mask;
    while (slots_[slot].address != nullptr && slots_[slot].address != address) {
      slot = (slot + 1) & mask;
    }
    return slot;
  }

  void grow() {
    const GrowingArray<Entry> old = std::move(slots_);
    const std::size_t size = old.empty() ? 64 : old.size() * 2;
    std::memset(static_cast<void*>(slots_.extend(size)), 0, size * sizeof(Entry));
    for (const Entry& entry : old.span()) {
      if (entry.address != nullptr) slots_[slotOf(entry.address)] = entry;
    }
  }

  GrowingArray<Entry> slots_;
  std::size_t used_ = 0;
};

}  // namespace ov::detail
