#pragma once

#include <cstddef>

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

}  // namespace ov::detail
