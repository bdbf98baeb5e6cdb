#include "service_call.h"

#include <algorithm>
#include <utility>

#include "service_error.h"

namespace ov::eds {

namespace {

/// Far enough, and without overflow for any deadline.
constexpr std::chrono::hours kLongest{24 * 365};

}  // namespace

void ServiceCall::Shared::finish(End why) {
  End expected = End::None;
  if (!end.compare_exchange_strong(expected, why)) return;
  g_cancellable_cancel(cancellable.get());
  const std::lock_guard lock(mutex);
  if (wake) wake();
}

ServiceCall::ServiceCall(Worker& worker, const Call& call)
    : worker_(worker),
      deadline_(Worker::Clock::now() +
                std::clamp<std::chrono::milliseconds>(call.deadline, {}, kLongest)),
      timer_(worker.callAt(deadline_, [shared = shared_] { shared->finish(End::TimeIsUp); })),
      stop_(std::in_place, call.stop, Stop{shared_}) {}

ServiceCall::~ServiceCall() { worker_.cancel(timer_); }

std::error_code ServiceCall::ended() const {
  // The session's thread may be late with it.
  if (Worker::Clock::now() >= deadline_) shared_->finish(End::TimeIsUp);
  switch (shared_->end.load()) {
    case End::None:
      return {};
    case End::TimeIsUp:
      return std::make_error_code(std::errc::timed_out);
    case End::Stopped:
      break;
  }
  return std::make_error_code(std::errc::operation_canceled);
}

void ServiceCall::setWake(std::function<void()> wake) const {
  const std::lock_guard lock(shared_->mutex);
  shared_->wake = std::move(wake);
  if (shared_->wake && hasEnded()) shared_->wake();
}

std::error_code ServiceCall::errorOf(const Fault& fault) const {
  if (!fault) return {};
  const std::error_code early = ended();
  return early ? early : meaningOf(*fault.get());
}

}  // namespace ov::eds
