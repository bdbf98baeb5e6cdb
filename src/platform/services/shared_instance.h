#pragma once

#include <sys/single_threaded.h>

#include <mutex>
#include <utility>

#include <OVAddressBookSDK/object.h>

#include "platform/services/fork_guard.h"

namespace ov {

/// The instance of a service that all share: the one that the host has installed, else the
/// platform's default, made when it is first asked for. Lives as long as the process.
template <class Service>
class SharedInstance {
 public:
  explicit SharedInstance(OVRef<Service> (*makeDefault)()) : makeDefault_(makeDefault) {
    guardForever(mutex_);
  }

  [[nodiscard]] OVRef<Service> get() {
    // With one thread there is nobody to lock out.
    if (__libc_single_threaded != 0 && installed_ != nullptr) return installed_;
    if (__libc_single_threaded != 0 && default_ != nullptr) return default_;
    const std::lock_guard lock(mutex_);
    if (installed_ != nullptr) return installed_;
    if (default_ == nullptr) default_ = makeDefault_();
    return default_;
  }

  /// Null brings the default back. The instance replaced is released after the lock.
  void set(OVRef<Service> service) {
    const std::lock_guard lock(mutex_);
    installed_.swap(service);
  }

  /// The next default is a new one.
  void forgetDefault() {
    OVRef<Service> forgotten;
    const std::lock_guard lock(mutex_);
    default_.swap(forgotten);
  }

 private:
  std::mutex mutex_;
  OVRef<Service> (*makeDefault_)();
  OVRef<Service> installed_;
  OVRef<Service> default_;
};

}  // namespace ov
