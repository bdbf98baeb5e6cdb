#include "platform/archive/large_memory.h"

#include <sys/mman.h>

#include <cstdint>

namespace ov::detail {

void adviseLarge(void* begin, std::size_t bytes) noexcept {
  constexpr std::size_t kLargePage = 2 << 20;
  constexpr std::size_t kWorthwhile = 4 * kLargePage;
  if (bytes < kWorthwhile) return;
  const auto address = reinterpret_cast<std::uintptr_t>(begin);
  const std::size_t skipped = (kLargePage - address % kLargePage) % kLargePage;
  static_cast<void>(
      madvise(static_cast<std::byte*>(begin) + skipped, bytes - skipped, MADV_HUGEPAGE));
}

}  // namespace ov::detail
