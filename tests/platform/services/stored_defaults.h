#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/user_defaults.h>

#include "platform/services/persistent_defaults.h"
#include "support/fake_platform.h"
#include "support/temporary_folder.h"

/// Stores of one application in a folder of the test's own.
class StoredDefaults : public testing::Test {
 protected:
  StoredDefaults() { OVLog::setSharedLog(log_); }
  ~StoredDefaults() override { OVLog::setSharedLog(nullptr); }

  /// A store that knows only what is on the disk.
  [[nodiscard]] OVRef<OVUserDefaults> openStore() const {
    return std::make_shared<ov::PersistentDefaults>(directory().string());
  }
  /// One that does not wait long for locks.
  [[nodiscard]] OVRef<OVUserDefaults> openHurriedStore() const {
    return std::make_shared<ov::PersistentDefaults>(directory().string(),
                                                    std::chrono::milliseconds(20));
  }

  [[nodiscard]] std::filesystem::path directory() const {
    return home_.path() / "config" / "application";
  }
  [[nodiscard]] std::filesystem::path database() const { return directory() / "user-defaults.db"; }

  static void setInteger(OVUserDefaults& defaults, std::int64_t value, const OVString& key) {
    defaults.setObjectForKey(OVNumber::numberWithInteger(value), key);
  }
  /// -1 when there is none.
  [[nodiscard]] static std::int64_t integer(const OVUserDefaults& defaults, const OVString& key) {
    const auto number = ov::cast<OVNumber>(defaults.objectForKey(key));
    return number == nullptr ? -1 : number->integerValue();
  }

  const TemporaryFolder home_;
  const OVRef<RecordingLog> log_ = std::make_shared<RecordingLog>();
};
