#include "platform/services/in_process_center.h"

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

namespace ov {

namespace {

struct Observer {
  OVString name;
  OVNotificationCenter::Callback callback;
  std::atomic<bool> removed = false;
};

}  // namespace

class InProcessCenter::Observers {
 public:
  void add(const OVRef<Observer>& observer) {
    const std::lock_guard lock(mutex_);
    all_.push_back(observer);
  }

  /// The caller's reference keeps the callback, whose destruction may do anything, out of the lock.
  void remove(const OVRef<Observer>& observer) {
    const std::lock_guard lock(mutex_);
    std::erase(all_, observer);
  }

  [[nodiscard]] std::vector<OVRef<Observer>> of(const OVString& name) {
    const std::lock_guard lock(mutex_);
    std::vector<OVRef<Observer>> found;
    for (const auto& observer : all_) {
      if (observer->name.isNull() || observer->name == name) found.push_back(observer);
    }
    return found;
  }

 private:
  std::mutex mutex_;
  std::vector<OVRef<Observer>> all_;
};

InProcessCenter::InProcessCenter() : observers_(std::make_shared<Observers>()) {}

OVNotificationObserver InProcessCenter::observe(const OVString& name, Callback callback) {
  auto observer = std::make_shared<Observer>();
  observer->name = name;
  observer->callback = std::move(callback);
  observers_->add(observer);
  return OVNotificationObserver([center = std::weak_ptr(observers_), observer] {
    observer->removed = true;
    if (const auto observers = center.lock()) observers->remove(observer);
  });
}

void InProcessCenter::post(const OVNotification& notification) {
  for (const auto& observer : observers_->of(notification.name)) {
    if (!observer->removed) observer->callback(notification);
  }
}

}  // namespace ov
