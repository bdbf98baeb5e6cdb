#pragma once

#include <cstddef>

namespace ov::detail {

/// Memory for much that is used at random: what is large has pages of its own, large ones where the
/// system has them, and only those that are touched count. What is small comes from the heap.
struct LargeMemory {
  /// Throws `std::bad_alloc`.
  [[nodiscard]] static void* allocate(std::size_t bytes);
  /// `bytes`: as many as were asked for.
  static void free(void* memory, std::size_t bytes) noexcept;
};

/// For containers that are made in their final size.
template <class T>
struct LargeAllocator {
  using value_type = T;
  LargeAllocator() = default;
  template <class U>
  LargeAllocator(const LargeAllocator<U>&) {}  // NOLINT(google-explicit-constructor)
  T* allocate(std::size_t count) {
    return static_cast<T*>(LargeMemory::allocate(count * sizeof(T)));
  }
  void deallocate(T* place, std::size_t count) { LargeMemory::free(place, count * sizeof(T)); }
  template <class U>
  bool operator==(const LargeAllocator<U>&) const {
    return true;
  }
};

}  // namespace ov::detail
