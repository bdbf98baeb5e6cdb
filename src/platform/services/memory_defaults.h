#pragma once

#include <mutex>
#include <unordered_map>

#include <OVAddressBookSDK/user_defaults.h>

#include "platform/services/fork_guard.h"

namespace ov {

/// Values that end with the store.
class MemoryDefaults final : public OVUserDefaults {
 private:
  [[nodiscard]] OVRef<OVObject> load(const OVString& key) const override;
  void store(const OVRef<OVObject>& object, const OVString& key) override;
  bool writeThrough() override { return true; }

  mutable std::mutex mutex_;
  ForkGuard guard_{mutex_};
  std::unordered_map<OVString, OVRef<OVObject>> values_;
};

}  // namespace ov
