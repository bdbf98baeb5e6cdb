#pragma once

#include <cstddef>
#include <new>

namespace ov::detail {

/// Memory that grows without a second copy: small pieces come from the heap, large ones are pages
/// of their own, in large pages where the system has them, and only those that are touched count.
///
/// `bytes` is always the size that was asked for last.
struct LargeMemory {
  /// Null when there is no memory; `old`, which may be null, is then kept.
  [[nodiscard]] static void* resize(void* old, std::size_t oldBytes, std::size_t bytes) noexcept;
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
    void* place = LargeMemory::resize(nullptr, 0, count * sizeof(T));
    if (place == nullptr) throw std::bad_alloc();
    return static_cast<T*>(place);
  }
  void deallocate(T* place, std::size_t count) { LargeMemory::free(place, count * sizeof(T)); }
  template <class U>
  bool operator==(const LargeAllocator<U>&) const {
    return true;
  }
};

}  // namespace ov::detail
