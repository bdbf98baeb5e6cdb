#include "platform/archive/large_memory.h"

#include <sys/mman.h>

#include <cstdint>
#include <new>

namespace ov::detail {

namespace {

constexpr std::size_t kLargePage = 2 << 20;
constexpr std::size_t kLarge = 2 * kLargePage;

std::size_t wholePages(std::size_t bytes) {
  return (bytes + kLargePage - 1) / kLargePage * kLargePage;
}

/// At an address that is a multiple of a large page.
void* mapAligned(std::size_t bytes) {
  void* mapped = mmap(nullptr, bytes + kLargePage, PROT_READ | PROT_WRITE,
                      MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (mapped == MAP_FAILED) throw std::bad_alloc();
  auto* place = static_cast<std::byte*>(mapped);
  const std::size_t before = -reinterpret_cast<std::uintptr_t>(place) % kLargePage;
  if (before != 0) munmap(place, before);
  place += before;
  munmap(place + bytes, kLargePage - before);
  static_cast<void>(madvise(place, bytes, MADV_HUGEPAGE));
  return place;
}

}  // namespace

void* LargeMemory::allocate(std::size_t bytes) {
  if (bytes < kLarge) return ::operator new(bytes);
  if (bytes > SIZE_MAX - kLarge) throw std::bad_alloc();
  return mapAligned(wholePages(bytes));
}

void LargeMemory::free(void* memory, std::size_t bytes) noexcept {
  if (bytes < kLarge) {
    ::operator delete(memory);
  } else {
    munmap(memory, wholePages(bytes));
  }
}

}  // namespace ov::detail
