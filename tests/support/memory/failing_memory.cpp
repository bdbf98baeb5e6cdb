#include "support/memory/failing_memory.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>

// The linker brings the program's own calls of the C library's functions here.
extern "C" {
void* __real_malloc(std::size_t size);                     // NOLINT(bugprone-reserved-identifier)
void* __real_calloc(std::size_t count, std::size_t size);  // NOLINT(bugprone-reserved-identifier)
void* __real_realloc(void* block, std::size_t size);       // NOLINT(bugprone-reserved-identifier)
void __real_free(void* block);                             // NOLINT(bugprone-reserved-identifier)
}

namespace {

std::atomic<long> blocks = 0;
std::atomic<std::size_t> bytes = 0;
std::atomic<std::size_t> mostBytes = 0;

struct Plan {
  bool isOn = false;
  bool isLasting = false;
  bool occurred = false;
  long left = 0;  // allocations that still succeed
};
thread_local Plan plan;

void* counted(void* block) {
  if (block == nullptr) return block;
  ++blocks;
  bytes += malloc_usable_size(block);
  mostBytes = std::max<std::size_t>(mostBytes, bytes);
  return block;
}

void release(void* block) {
  if (block != nullptr) {
    --blocks;
    bytes -= malloc_usable_size(block);
  }
  __real_free(block);
}

void* allocate(std::size_t size) {
  if (!MemoryShortage::shouldFail()) {
    if (void* block = counted(__real_malloc(size == 0 ? 1 : size))) return block;
  }
  throw std::bad_alloc();
}

void* allocateAligned(std::size_t size, std::align_val_t alignment) {
  const auto step = static_cast<std::size_t>(alignment);
  if (!MemoryShortage::shouldFail()) {
    if (void* block = counted(std::aligned_alloc(step, (size + step - 1) / step * step))) {
      return block;
    }
  }
  throw std::bad_alloc();
}

}  // namespace

MemoryShortage::MemoryShortage(Kind kind, long firstToFail) {
  plan = {true, kind == Kind::lasting, false, firstToFail - 1};
}

MemoryShortage::~MemoryShortage() { plan.isOn = false; }

bool MemoryShortage::occurred() { return plan.occurred; }

bool MemoryShortage::shouldFail() {
  if (!plan.isOn || (plan.occurred && !plan.isLasting) || plan.left-- > 0) return false;
  plan.left = 0;
  return plan.occurred = true;
}

long blocksInUse() { return blocks; }
std::size_t bytesInUse() { return bytes; }
std::size_t mostBytesInUse() { return mostBytes; }
void forgetMostBytes() { mostBytes = bytes.load(); }

void* operator new(std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return allocateAligned(size, alignment);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return MemoryShortage::shouldFail() ? nullptr : counted(__real_malloc(size == 0 ? 1 : size));
}
void operator delete(void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  release(block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { release(block); }

extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __wrap_malloc(std::size_t size) {
  return MemoryShortage::shouldFail() ? nullptr : counted(__real_malloc(size));
}
void* __wrap_calloc(std::size_t count, std::size_t size) {
  return MemoryShortage::shouldFail() ? nullptr : counted(__real_calloc(count, size));
}
void* __wrap_realloc(void* block, std::size_t size) {
  if (MemoryShortage::shouldFail()) return nullptr;
  const std::size_t before = block == nullptr ? 0 : malloc_usable_size(block);
  void* grown = __real_realloc(block, size);
  if (grown == nullptr) return nullptr;
  if (block != nullptr) {
    --blocks;
    bytes -= before;
  }
  return counted(grown);
}
void __wrap_free(void* block) { release(block); }
// NOLINTEND(bugprone-reserved-identifier)
}
