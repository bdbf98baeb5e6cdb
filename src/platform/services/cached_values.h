#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/services/defaults_database.h"
#include "platform/services/fork_guard.h"

namespace ov {

/// What is known of a database's values, with the changes that it does not have yet on top. Any
/// thread may call it; no call waits for long.
class CachedValues {
 public:
  [[nodiscard]] OVRef<OVObject> get(const OVString& key) const;
  /// A change that is not saved yet; null removes the value.
  void change(const OVString& key, const OVRef<OVObject>& object);

  [[nodiscard]] std::vector<DefaultsDatabase::Change> unsaved() const;
  [[nodiscard]] bool hasUnsaved() const;
  /// The changes have been saved. Those that have been changed again meanwhile stay unsaved.
  void markSaved(const std::vector<DefaultsDatabase::Change>& changes);

  /// Takes what the database holds in the place of what was known.
  void refresh(DefaultsDatabase::Values values);
  /// The same with values that were read after `savedBefore()` gave this number: false, and nothing
  /// happens, when changes have been saved since, which the values may lack.
  [[nodiscard]] bool refresh(DefaultsDatabase::Values values, std::uint64_t saved);
  /// How often changes have been saved.
  [[nodiscard]] std::uint64_t savedBefore() const;

 private:
  void replace(DefaultsDatabase::Values& values);

  mutable std::mutex mutex_;
  ForkGuard guard_{mutex_};
  DefaultsDatabase::Values values_;
  std::map<OVString, OVRef<OVObject>> unsaved_;
  std::uint64_t saved_ = 0;
};

}  // namespace ov
