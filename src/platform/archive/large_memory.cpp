#include "platform/archive/large_memory.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace ov::detail {

namespace {

constexpr std::size_t kLargePage = 2 << 20;  // a large one
constexpr std::size_t kLarge = 2 * kLargePage;

bool isLarge(std::size_t bytes) { return bytes >= kLarge; }

/// 0 when there is no such size.
std::size_t wholePages(std::size_t bytes) {
  return bytes > SIZE_MAX - 2 * kLargePage ? 0 : (bytes + kLargePage - 1) / kLargePage * kLargePage;
}

/// Whole pages at an address that is a multiple of their size.
void* mapAligned(std::size_t bytes) {
  void* pages = mmap(nullptr, bytes + kLargePage, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (pages == MAP_FAILED) return nullptr;
  auto* mapped = static_cast<std::byte*>(pages);
  const std::size_t before =
      (kLargePage - reinterpret_cast<std::uintptr_t>(mapped) % kLargePage) % kLargePage;
  if (before != 0) munmap(mapped, before);
  munmap(mapped + before + bytes, kLargePage - before);
  static_cast<void>(madvise(mapped + before, bytes, MADV_HUGEPAGE));
  return mapped + before;
}

void* remap(void* old, std::size_t oldBytes, std::size_t bytes) {
  if (mremap(old, oldBytes, bytes, 0) != MAP_FAILED) return old;
  void* place = mapAligned(bytes);
  if (place == nullptr) return nullptr;
  if (mremap(old, oldBytes, bytes, MREMAP_MAYMOVE | MREMAP_FIXED, place) != MAP_FAILED)
    return place;
  munmap(place, bytes);
  return nullptr;
}

}  // namespace

void* LargeMemory::resize(void* old, std::size_t oldBytes, std::size_t bytes) noexcept {
  if (!isLarge(bytes) && !isLarge(oldBytes)) return std::realloc(old, bytes);
  if (isLarge(bytes) && wholePages(bytes) == 0) return nullptr;
  if (isLarge(bytes) && isLarge(oldBytes))
    return remap(old, wholePages(oldBytes), wholePages(bytes));
  void* moved = isLarge(bytes) ? mapAligned(wholePages(bytes)) : std::malloc(bytes);
  if (moved == nullptr) return nullptr;
  if (old != nullptr) std::memcpy(moved, old, std::min(oldBytes, bytes));
  free(old, oldBytes);
  return moved;
}

void LargeMemory::free(void* memory, std::size_t bytes) noexcept {
  if (isLarge(bytes)) {
    munmap(memory, wholePages(bytes));
  } else {
    std::free(memory);
  }
}

}  // namespace ov::detail
