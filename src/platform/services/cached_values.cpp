#include "platform/services/cached_values.h"

#include <new>
#include <utility>

namespace ov {

namespace {

/// Returns what was there before.
OVRef<OVObject> apply(DefaultsDatabase::Values& values, const OVString& key,
                      const OVRef<OVObject>& object) {
  if (object != nullptr) return std::exchange(values[key], object);
  const auto at = values.find(key);
  if (at == values.end()) return nullptr;
  auto replaced = std::move(at->second);
  values.erase(at);
  return replaced;
}

}  // namespace

OVRef<OVObject> CachedValues::get(const OVString& key) const {
  const std::lock_guard lock(mutex_);
  const auto at = values_.find(key);
  return at == values_.end() ? nullptr : at->second;
}

void CachedValues::change(const OVString& key, const OVRef<OVObject>& object) {
  // Destroyed after the lock is released: a host's destructor may call back.
  OVRef<OVObject> known;
  OVRef<OVObject> unsaved;
  const std::lock_guard lock(mutex_);
  const auto [at, isNew] = unsaved_.try_emplace(key);
  try {
    known = apply(values_, key, object);
  } catch (const std::bad_alloc&) {
    if (isNew) unsaved_.erase(at);
    throw;
  }
  unsaved = std::exchange(at->second, object);
}

std::vector<DefaultsDatabase::Change> CachedValues::unsaved() const {
  const std::lock_guard lock(mutex_);
  std::vector<DefaultsDatabase::Change> changes;
  changes.reserve(unsaved_.size());
  for (const auto& [key, object] : unsaved_) changes.push_back({key, object});
  return changes;
}

bool CachedValues::hasUnsaved() const {
  const std::lock_guard lock(mutex_);
  return !unsaved_.empty();
}

void CachedValues::markSaved(const std::vector<DefaultsDatabase::Change>& changes) {
  const std::lock_guard lock(mutex_);
  for (const auto& change : changes) {
    const auto at = unsaved_.find(change.key);
    if (at != unsaved_.end() && at->second == change.object) unsaved_.erase(at);
  }
  ++saved_;
}

void CachedValues::refresh(DefaultsDatabase::Values values) {
  const std::lock_guard lock(mutex_);
  replace(values);
}

bool CachedValues::refresh(DefaultsDatabase::Values values, std::uint64_t saved) {
  const std::lock_guard lock(mutex_);
  if (saved != saved_) return false;
  replace(values);
  return true;
}

std::uint64_t CachedValues::savedBefore() const {
  const std::lock_guard lock(mutex_);
  return saved_;
}

void CachedValues::replace(DefaultsDatabase::Values& values) {
  for (const auto& [key, object] : unsaved_) apply(values, key, object);
  values_.swap(values);
}

}  // namespace ov
