#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/large_memory.h"

namespace ov::detail {

/// References to objects that may be met again. The objects are known by their addresses, and kept
/// so that no address is used twice.
class MetObjects {
 public:
  struct Entry {
    const void* address = nullptr;
    std::uint32_t number = 0;
  };
  struct Result {
    Entry& entry;
    bool isNew;
  };

  /// Valid until the next call. Where the object is new its reference is to be put there.
  /// `handle`: one that keeps it, `OVRef` or `OVString`.
  template <class Handle>
  Result at(const OVObject& object, const Handle& handle) {
    if (used_ * 4 >= slots_.size() * 3) grow();
    Entry& entry = slotOf(&object);
    const bool isNew = entry.address == nullptr;
    if (isNew) {
      ++used_;
      entry.address = &object;
      std::get<std::vector<Handle>>(kept_).push_back(handle);
    }
    return {entry, isNew};
  }

 private:
  using Slots = std::vector<Entry, LargeAllocator<Entry>>;

  Entry& slotOf(const void* address) {
    const std::uint64_t hash = reinterpret_cast<std::uintptr_t>(address) * 0x9E3779B97F4A7C15U;
    for (std::uint64_t at = hash >> 32;; ++at) {
      Entry& entry = slots_[static_cast<std::size_t>(at) & (slots_.size() - 1)];
      if (entry.address == nullptr || entry.address == address) return entry;
    }
  }

  void grow() {
    const Slots old = std::exchange(slots_, Slots(slots_.size() * 2));
    for (const Entry& entry : old) {
      if (entry.address != nullptr) slotOf(entry.address) = entry;
    }
  }

  Slots slots_ = Slots(64);  // a power of two
  std::size_t used_ = 0;
  std::tuple<std::vector<OVRef<OVObject>>, std::vector<OVString>> kept_;
};

}  // namespace ov::detail
