#include "platform/dispose.h"

#include <array>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace ov::detail {

namespace {

constexpr int kMaxDepth = 64;

/// What waits to be destroyed on one thread. Trivial, so that it can be used at any time, even
/// while the thread ends.
struct Waiting {
  using Reference = OVRef<OVObject>;

  std::vector<Reference>* list;
  /// For when there is no memory for the list: enough for chains, which wait one at a time.
  struct alignas(Reference) Place {
    std::array<std::byte, sizeof(Reference)> bytes;
  };
  std::array<Place, kMaxDepth> spare;
  std::size_t spareCount;
};

thread_local int depth = 0;
thread_local constinit Waiting waiting = {};

bool postpone(OVRef<OVObject>& reference) noexcept {
  try {
    if (waiting.list == nullptr) waiting.list = new std::vector<OVRef<OVObject>>();
    waiting.list->push_back(std::move(reference));
  } catch (const std::bad_alloc&) {
    if (waiting.spareCount == waiting.spare.size()) return false;
    // cppcheck-suppress accessMoved ; a push_back that throws has not moved anything
    ::new (&waiting.spare[waiting.spareCount++]) OVRef<OVObject>(std::move(reference));
  }
  return true;
}

/// Null when nothing waits.
OVRef<OVObject> takeWaiting() noexcept {
  OVRef<OVObject> taken;
  if (waiting.spareCount > 0) {
    auto* held =
        std::launder(reinterpret_cast<OVRef<OVObject>*>(&waiting.spare[--waiting.spareCount]));
    taken = std::move(*held);
    std::destroy_at(held);
  } else if (waiting.list != nullptr && !waiting.list->empty()) {
    taken = std::move(waiting.list->back());
    waiting.list->pop_back();
  }
  return taken;
}

void destroyWaiting() noexcept {
  while (takeWaiting() != nullptr) {
    // The reference goes at the end of each round.
  }
  delete std::exchange(waiting.list, nullptr);
}

}  // namespace

void dispose(OVRef<OVObject>&& reference) noexcept {
  if (reference == nullptr) return;
  // Only the last reference destroys; room for all of them could be more than the objects take.
  if (depth >= kMaxDepth && reference.use_count() == 1 && postpone(reference)) return;
  ++depth;
  reference.reset();
  if (depth == 1) destroyWaiting();
  --depth;
}

}  // namespace ov::detail
