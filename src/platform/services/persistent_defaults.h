#pragma once

#include <chrono>
#include <memory>
#include <string>

#include <OVAddressBookSDK/user_defaults.h>

namespace ov {

/// The preferences of one application, kept in its database. Reads come from memory, after
/// a look whether the database has changed.
class PersistentDefaults final : public OVUserDefaults {
 public:
  /// The database's folder need not exist; "" when there is no home to put it into. No call waits
  /// longer than `longestWait` for other processes to give up their locks.
  explicit PersistentDefaults(const std::string& directory,
                              std::chrono::milliseconds longestWait = std::chrono::seconds(2));
  ~PersistentDefaults() override;

 private:
  class State;

  [[nodiscard]] OVRef<OVObject> load(const OVString& key) const override;
  [[nodiscard]] OVRef<OVObject> loadPreference(const OVString& key) const override;
  void store(const OVRef<OVObject>& object, const OVString& key) override;
  bool writeThrough() override;

  const std::unique_ptr<State> state_;
};

}  // namespace ov
