#pragma once

#include <chrono>
#include <csignal>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/user_defaults.h>

#include "platform/services/deadline.h"
#include "platform/services/persistent_defaults.h"
#include "platform/services/sqlite.h"
#include "support/fakes/fake_platform.h"
#include "support/processes/child_process.h"
#include "support/processes/temporary_folder.h"

/// Stores of one application in a folder of the test's own.
class StoredDefaults : public testing::Test {
 protected:
  StoredDefaults() { OVLog::setSharedLog(log_); }
  ~StoredDefaults() override { OVLog::setSharedLog(nullptr); }

  /// A store that knows only what is on the disk. It waits for locks longer than any machine is
  /// slow.
  [[nodiscard]] OVRef<OVUserDefaults> openStore() const { return open(std::chrono::minutes(1)); }
  /// One that gives up on a lock at once, or nearly so.
  [[nodiscard]] OVRef<OVUserDefaults> openHurriedStore() const {
    return open(std::chrono::milliseconds(20));
  }

  /// A process that holds the database's lock, stopped.
  [[nodiscard]] ChildProcess stoppedWriter() const {
    ChildProcess process([this] {
      ov::Deadline deadline(std::chrono::seconds(10));
      ov::sqlite::Database connection(database().string(), deadline);
      connection.execute("BEGIN IMMEDIATE");
      ::raise(SIGSTOP);
      return true;
    });
    process.waitUntilStopped();
    return process;
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

 private:
  [[nodiscard]] OVRef<OVUserDefaults> open(std::chrono::milliseconds longestWait) const {
    return std::make_shared<ov::PersistentDefaults>(directory().string(), longestWait);
  }
};
