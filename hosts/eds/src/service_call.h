#pragma once

#include <gio/gio.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <system_error>

#include <OVAddressBookEDS/eds_call.h>

#include "glib_ptr.h"
#include "worker.h"

namespace ov::eds {

/// One request to the service: ends with its deadline or when it is stopped.
class ServiceCall {
 public:
  ServiceCall(Worker& worker, const Call& call);
  ServiceCall(const ServiceCall&) = delete;
  ServiceCall& operator=(const ServiceCall&) = delete;
  ~ServiceCall();

  /// For the service's functions. Cancelled when time is up.
  [[nodiscard]] GCancellable* cancellable() const { return shared_->cancellable.get(); }
  [[nodiscard]] std::chrono::steady_clock::time_point deadline() const { return deadline_; }

  /// Set once the call has ended early. Ends it when its time is up.
  [[nodiscard]] std::error_code ended() const;
  /// Whether somebody has ended it early. May be asked with any lock held.
  [[nodiscard]] bool hasEnded() const { return shared_->end != End::None; }
  /// Has whoever ends the call early call `wake`; calls it at once when the call has ended. The one
  /// before is no longer called once this has returned.
  void setWake(std::function<void()> wake) const;
  /// What a failure means: the reason why the call ended early, or what the service says.
  [[nodiscard]] std::error_code errorOf(const Fault& fault) const;

 private:
  enum class End : int { None, TimeIsUp, Stopped };
  struct Shared {
    GRef<GCancellable> cancellable{g_cancellable_new()};
    std::atomic<End> end{End::None};
    std::mutex mutex;
    std::function<void()> wake;

    void finish(End why);
  };
  struct Stop {
    std::shared_ptr<Shared> shared;
    void operator()() const { shared->finish(End::Stopped); }
  };

  Worker& worker_;
  std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
  std::chrono::steady_clock::time_point deadline_;
  Worker::Timer timer_;
  std::optional<std::stop_callback<Stop>> stop_;
};

}  // namespace ov::eds
