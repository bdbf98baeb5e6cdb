#include "platform/dispose.h"

#include <utility>
#include <vector>

namespace ov::detail {

namespace {

constexpr int kDeepest = 64;

/// What waits to be destroyed on this thread. Trivial, so that it can be used at any time, even
/// while the thread ends.
thread_local int depth = 0;
thread_local std::vector<OVRef<OVObject>>* waiting = nullptr;

bool postpone(OVRef<OVObject>& reference) noexcept {
  try {
    if (waiting == nullptr) waiting = new std::vector<OVRef<OVObject>>();
    waiting->push_back(std::move(reference));
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void destroyWaiting() noexcept {
  while (waiting != nullptr && !waiting->empty()) {
    const OVRef<OVObject> next = std::move(waiting->back());
    waiting->pop_back();
  }
  delete std::exchange(waiting, nullptr);
}

}  // namespace

void dispose(OVRef<OVObject>&& reference) noexcept {
  if (reference == nullptr || (depth >= kDeepest && postpone(reference))) return;
  ++depth;
  reference.reset();
  if (depth == 1) destroyWaiting();
  --depth;
}

}  // namespace ov::detail
