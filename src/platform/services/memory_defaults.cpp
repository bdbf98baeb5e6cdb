#include "platform/services/memory_defaults.h"

#include <utility>

namespace ov {

OVRef<OVObject> MemoryDefaults::load(const OVString& key) const {
  const std::lock_guard lock(mutex_);
  const auto at = values_.find(key);
  return at == values_.end() ? nullptr : at->second;
}

void MemoryDefaults::store(const OVRef<OVObject>& object, const OVString& key) {
  // Destroyed after the lock is released: a host's destructor may call back.
  OVRef<OVObject> replaced;
  const std::lock_guard lock(mutex_);
  if (object != nullptr) {
    replaced = std::exchange(values_[key], object);
  } else if (const auto at = values_.find(key); at != values_.end()) {
    replaced = std::move(at->second);
    values_.erase(at);
  }
}

}  // namespace ov
