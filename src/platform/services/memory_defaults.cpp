#include "platform/services/memory_defaults.h"

namespace ov {

OVRef<OVObject> MemoryDefaults::load(const OVString& key) const {
  const std::lock_guard lock(mutex_);
  const auto at = values_.find(key);
  return at == values_.end() ? nullptr : at->second;
}

void MemoryDefaults::store(const OVRef<OVObject>& object, const OVString& key) {
  const std::lock_guard lock(mutex_);
  if (object == nullptr) {
    values_.erase(key);
  } else {
    values_.insert_or_assign(key, object);
  }
}

}  // namespace ov
