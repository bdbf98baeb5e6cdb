#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <atomic>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/memory_limit.h"
#include "support/memory/leaks_tolerated.h"

// A sanitizer takes terabytes of address space for itself: its allocator counts instead.

namespace {

std::atomic<std::size_t> inUse = 0;
std::atomic<std::size_t> peak = 0;

void countAllocated(const volatile void* /*place*/, std::size_t size) {
  const std::size_t now = inUse += size;
  peak = std::max<std::size_t>(peak, now);
}

void countFreed(const volatile void* place) {
  inUse -= __sanitizer_get_allocated_size(const_cast<const void*>(place));
}

void countFromNowOn() {
  static const bool counts = __sanitizer_install_malloc_and_free_hooks(countAllocated, countFreed);
  ASSERT_TRUE(counts);
}

void read(const OVRef<OVData>& block, Classes known) {
  const LeaksTolerated tolerated;
  try {
    static_cast<void>(known == Classes::none
                          ? OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block)
                          : OVKeyedUnarchiver::unarchiveObjectWithData(block));
  } catch (const OVInvalidArchive&) {  // refused is bounded as well
  }
}

}  // namespace

testing::AssertionResult readsInMemory(const OVRef<OVData>& block, Classes known,
                                       std::size_t bytes) {
  countFromNowOn();
  const std::size_t before = inUse;
  peak = before;
  read(block, known);
  if (peak - before <= bytes) return testing::AssertionSuccess();
  return testing::AssertionFailure() << block->size() << " bytes were read in " << peak - before
                                     << " bytes of memory instead of " << bytes;
}
