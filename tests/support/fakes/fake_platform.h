#pragma once

#include <mutex>
#include <vector>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/log.h>
#include <OVAddressBookSDK/notification_center.h>
#include <OVAddressBookSDK/user_defaults.h>
#include <OVAddressBookSDK/workspace.h>

/// Keeps the URLs that it is asked to open and opens none of them.
class RecordingWorkspace final : public OVWorkspace {
 public:
  [[nodiscard]] std::vector<OVString> opened() const;

 private:
  bool open(const OVString& url) override;

  mutable std::mutex mutex_;
  std::vector<OVString> opened_;
};

/// Keeps the lines that are logged.
class RecordingLog final : public OVLog {
 public:
  [[nodiscard]] std::vector<OVString> lines() const;

 private:
  void write(const OVString& line) override;

  mutable std::mutex mutex_;
  std::vector<OVString> lines_;
};

/// For as long as it lives, services that touch nothing outside the process replace those of the
/// platform. A test that needs a locale installs `OVLocale::withIdentifier` on top.
class FakePlatform {
 public:
  FakePlatform();
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;
  ~FakePlatform();

  const OVRef<OVUserDefaults> defaults = OVUserDefaults::inMemory();
  const OVRef<OVNotificationCenter> center = OVNotificationCenter::inProcess();
  const OVRef<RecordingWorkspace> workspace = std::make_shared<RecordingWorkspace>();
  const OVRef<RecordingLog> log = std::make_shared<RecordingLog>();
};
