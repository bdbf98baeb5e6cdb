#include "loading/cancellation.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

namespace ovcontacts {

Cancellation::Cancellation() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Cancellation::~Cancellation() {
  if (descriptor_ != -1) close(descriptor_);
}

void Cancellation::cancel() {
  stop_.request_stop();
  const std::uint64_t one = 1;
  [[maybe_unused]] const auto written = write(descriptor_, &one, sizeof one);
}

void Cancellation::check() const {
  if (isCancelled()) throw Cancelled();
}

}  // namespace ovcontacts
