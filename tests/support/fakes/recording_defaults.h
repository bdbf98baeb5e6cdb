#pragma once

#include <map>
#include <vector>

#include <OVAddressBookSDK/user_defaults.h>

/// User defaults in memory that keep every write to them.
class RecordingDefaults final : public OVUserDefaults {
 public:
  struct Write {
    OVString key;
    OVRef<OVObject> object;
  };

  std::vector<Write> writes;
  int synchronizations = 0;

 private:
  OVRef<OVObject> load(const OVString& key) const override {
    const auto at = entries_.find(key);
    return at == entries_.end() ? nullptr : at->second;
  }
  void store(const OVRef<OVObject>& object, const OVString& key) override {
    writes.push_back({key, object});
    entries_[key] = object;
  }
  bool writeThrough() override {
    ++synchronizations;
    return true;
  }

  std::map<OVString, OVRef<OVObject>> entries_;
};

/// Installs recording user defaults for as long as it lives.
class RecordedDefaults {
 public:
  RecordedDefaults() { OVUserDefaults::setStandardUserDefaults(defaults_); }
  RecordedDefaults(const RecordedDefaults&) = delete;
  RecordedDefaults& operator=(const RecordedDefaults&) = delete;
  ~RecordedDefaults() { OVUserDefaults::setStandardUserDefaults(nullptr); }

  RecordingDefaults* operator->() const { return defaults_.get(); }

 private:
  OVRef<RecordingDefaults> defaults_ = std::make_shared<RecordingDefaults>();
};
