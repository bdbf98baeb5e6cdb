#pragma once

#include <cstddef>
#include <new>

#include <gtest/gtest.h>

/// Memory that runs out at a chosen moment.
///
/// A program that links `ov_failing_memory` gets its memory from here: what `operator new` gives
/// anywhere in the process, and what `malloc`, `calloc` and `realloc` give to the program's own
/// code, the library included. What other libraries take from the C library never fails.
class MemoryShortage {
 public:
  /// One allocation fails, or all from a certain one on.
  enum class Kind { passing, lasting };

  /// Lasts while it lives, on this thread. Allocations count from 1.
  MemoryShortage(Kind kind, long firstToFail);
  MemoryShortage(const MemoryShortage&) = delete;
  MemoryShortage& operator=(const MemoryShortage&) = delete;
  ~MemoryShortage();

  /// Whether an allocation has failed.
  [[nodiscard]] static bool occurred();
  /// For an allocator of another kind: whether it is to fail now.
  [[nodiscard]] static bool shouldFail();
};

/// Blocks of memory that have been allocated and not freed.
[[nodiscard]] long blocksInUse();

/// Bytes in these blocks, and the most that there were since `forgetMostBytes`.
[[nodiscard]] std::size_t bytesInUse();
[[nodiscard]] std::size_t mostBytesInUse();
void forgetMostBytes();

/// The most bytes that the operation holds at a time.
template <class Operation>
std::size_t mostBytesOf(Operation operation) {
  const std::size_t before = bytesInUse();
  forgetMostBytes();
  operation();
  return mostBytesInUse() - before;
}

/// Which allocation fails after this one did: the next, but under a sanitizer ever fewer, since
/// later ones are mostly given up on the same few ways.
constexpr long nextToFail(long number) {
#ifdef OV_WATCHED
  return number + 1 + number / 20;
#else
  return number + 1;
#endif
}

/// Calls `operation` with its first allocation failing, then with its second (`nextToFail`), and so
/// on until it gets all that it asks for; then does the same with all memory gone from there on.
///
/// A failure reaches the caller as `std::bad_alloc`, or it is of no consequence and the result is
/// right: `check` is called with it. Either way nothing may stay allocated, and the next
/// undisturbed call gives the right result.
template <class Operation, class Check>
void failEachAllocation(Operation operation, Check check) {
  check(operation());
  for (const auto kind : {MemoryShortage::Kind::passing, MemoryShortage::Kind::lasting}) {
    long failures = 0;
    bool occurred = true;
    for (long number = 1; occurred && !testing::Test::HasFailure(); number = nextToFail(number)) {
      SCOPED_TRACE(testing::Message()
                   << "allocation " << number << " fails, "
                   << (kind == MemoryShortage::Kind::lasting ? "lasting" : "passing"));
      const long before = blocksInUse();
      try {
        decltype(operation()) result = {};
        {
          const MemoryShortage shortage(kind, number);
          result = operation();
          occurred = MemoryShortage::occurred();
        }
        check(result);
      } catch (const std::bad_alloc&) {
        ++failures;
      }
      EXPECT_EQ(blocksInUse(), before) << "blocks were left behind";
      check(operation());
    }
    EXPECT_GT(failures, 0);
  }
}
